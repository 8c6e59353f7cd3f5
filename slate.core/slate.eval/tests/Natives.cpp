#include "Natives.h"

namespace Slate::Testing {

std::vector<std::string>& nativeCalls() {
    static std::vector<std::string> calls;
    return calls;
}

std::string textOf(Core::Any const& value) {
    switch (value.getType()) {
    case Core::AnyType::Int: return std::to_string(value.asInt());
    case Core::AnyType::Real: {
        auto text = std::to_string(value.asReal());
        return text.substr(0, text.find('.') + 2);
    }
    case Core::AnyType::Bool: return value.asBool() ? "true" : "false";
    case Core::AnyType::String: return "'" + value.asString() + "'";
    case Core::AnyType::Object: return "<" + value.asObject()->getName() + ">";
    case Core::AnyType::Array: return "[" + textOf(value.asArray()) + "]";
    case Core::AnyType::Undefined: return "undefined";
    }
    return "?";
}

std::string textOf(std::vector<Core::Any> const& values) {
    std::string text;
    for (auto const& value : values)
        text += (text.empty() ? "" : ", ") + textOf(value);
    return text;
}

NativeObject::NativeObject() { appendToTypeList("Native"); }

void NativeObject::on_init() {
    nativeCalls().push_back("on_init " + getName());
    Object::on_init();
}

void NativeObject::triggerOnInit() {
    nativeCalls().push_back("triggerOnInit " + getName());
    Object::triggerOnInit();
}

Core::Any NativeObject::callDynamic(std::string const& key, std::vector<Core::Any> const& arguments) {
    nativeCalls().push_back("<" + getName() + ">." + key + "(" + textOf(arguments) + ")");
    if (key == "nothing")
        return {};
    if (key == "text")
        return Core::Any(std::string("text"));
    if (key == "count")
        return Core::Any(static_cast<std::int64_t>(arguments.size()));
    return arguments.empty() ? Core::Any(std::int64_t{7}) : arguments.front();
}

} // namespace Slate::Testing
