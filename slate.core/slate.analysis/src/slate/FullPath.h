#pragma once

#include "slate/NodeTypes.h"

#include <optional>
#include <string>
#include <string_view>

namespace Slate::Analysis {

/// The full path of the attribute that a walk is at: the full path of the attribute that encloses it, if it
/// knows one, a "." and its own. Built up on the way down, so that each attribute costs no more than its own
/// segments.
class FullPath {
  public:
    /// Stands at an attribute for as long as it lives.
    class At {
      public:
        At(FullPath& path, VarAssignment const& attribute);
        ~At();
        At(At const&) = delete;
        At& operator=(At const&) = delete;

      private:
        FullPath& path_;
        std::optional<std::string_view> single_before_;
        std::string text_before_; // if it was replaced
        std::size_t length_before_;
        bool is_replaced_ = false;
    };

    std::string_view text() const { return single_ ? *single_ : text_; }

    /// The full path less the last segment of the attribute, and the "." in front of that.
    std::string textWithoutLastSegment(VarAssignment const& attribute) const;

  private:
    std::optional<std::string_view> single_; // the name of an attribute that is the whole path; not copied
    std::string text_;                       // else
};

} // namespace Slate::Analysis
