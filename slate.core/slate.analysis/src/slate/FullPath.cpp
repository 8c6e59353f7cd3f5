#include "slate/FullPath.h"

#include "slate/VarAssignment.h"

#include <utility>

namespace Slate::Analysis {

FullPath::At::At(FullPath& path, VarAssignment const& attribute)
    : path_(path), single_before_(path.single_), length_before_(path.text_.size()) {
    auto const& segments = attribute.getPath();
    bool const goes_on = attribute.getParent() != nullptr;
    path_.single_ = {};
    if (!goes_on && segments.size() == 1) {
        path_.single_ = segments.front().lexeme();
        return;
    }
    is_replaced_ = !goes_on || single_before_.has_value();
    if (is_replaced_)
        text_before_ = std::exchange(path_.text_, std::string(goes_on ? *single_before_ : ""));
    bool is_first = !goes_on;
    for (auto const& segment : segments) {
        if (!std::exchange(is_first, false))
            path_.text_ += '.';
        path_.text_ += segment.lexeme();
    }
}

FullPath::At::~At() {
    path_.single_ = single_before_;
    if (is_replaced_)
        path_.text_ = std::move(text_before_);
    else
        path_.text_.resize(length_before_);
}

std::string FullPath::textWithoutLastSegment(VarAssignment const& attribute) const {
    auto const last = attribute.getPath().back().lexeme().size();
    return std::string(last < text().size() ? text().substr(0, text().size() - last - 1) : "");
}

} // namespace Slate::Analysis
