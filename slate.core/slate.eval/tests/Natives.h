#pragma once

#include "slate/EvaluatorContext.h"

#include <memory>
#include <string>
#include <vector>

namespace Slate::Testing {

/// What natives were called with since the test began, a text each. Natives are plain functions, so it is
/// kept for all of them.
std::vector<std::string>& nativeCalls();

/// "1", "2.5", "true", "'text'", "[1,2]", the name of an object in angle brackets, or "undefined".
std::string textOf(Core::Any const& value);

/// The values as `textOf`, with ", " between them.
std::string textOf(std::vector<Core::Any> const& values);

/// A native class that writes down how it is called. "Native" is the last entry of its type list.
class NativeObject : public Core::Object {
  public:
    NativeObject();

    void on_init() override;
    void triggerOnInit() override;

    /// "nothing" answers nothing, "text" a string, "count" the number of arguments, all others the first
    /// argument, or 7 without arguments.
    Core::Any callDynamic(std::string const& key, std::vector<Core::Any> const& arguments) override;
};

template <typename Native>
Core::ObjectPtr makeNative() {
    return std::make_shared<Native>();
}

} // namespace Slate::Testing
