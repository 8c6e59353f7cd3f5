#include "slate/FullPath.h"

#include "slate/VarAssignment.h"

#include <utility>

namespace Slate::Analysis {

FullPath::At::At(FullPath& path, VarAssignment const& attribute)
    : path_(path), length_before_(path.text_.size()), goes_on_(attribute.getParent() != nullptr) {
    if (!goes_on_ && !path_.text_.empty())
        text_before_ = std::exchange(path_.text_, {});
    bool is_first = !goes_on_;
    for (auto const& segment : attribute.getSegments()) {
        if (!std::exchange(is_first, false))
            path_.text_ += '.';
        path_.text_ += segment.lexeme;
    }
}

FullPath::At::~At() {
    if (goes_on_ || length_before_ == 0)
        path_.text_.resize(length_before_);
    else
        path_.text_ = std::move(text_before_);
}

std::string FullPath::textWithoutLastSegment(VarAssignment const& attribute) const {
    auto const last = attribute.getSegments().back().lexeme.size();
    return last < text_.size() ? text_.substr(0, text_.size() - last - 1) : std::string();
}

} // namespace Slate::Analysis
