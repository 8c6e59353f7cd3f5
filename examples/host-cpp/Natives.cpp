#include "Natives.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <numbers>
#include <stdexcept>
#include <string>
#include <vector>

namespace Winch {

namespace {

using Slate::Core::Any;
using Slate::Core::Object;
using Slate::Core::ObjectPtr;

/// Runs the code of a native. After a mistake elsewhere the values that it reads may be missing. What the
/// readers throw then must not leave the native, for that would end the whole load.
template <typename Code>
Any answerOf(Code code) {
    try {
        return Any(code());
    } catch (std::runtime_error const&) {
        return {};
    }
}

/// A native class: the instances of the model `Drum`, and of all models that extend it, are objects of this
/// class.
class Drum : public Object {
  public:
    // The name by which hosts tell native classes apart.
    Drum() { appendToTypeList("Drum"); }

    /// All methods of the model come here. The attributes of the object are evaluated before the call.
    Any callDynamic(std::string const& key, std::vector<Any> const& args) override {
        if (key == "layers")
            return answerOf([&] { return layers(args.at(0).asReal()); });
        return Object::callDynamic(key, args);
    }

  private:
    std::int64_t layers(double metres) const {
        auto const rope = getNumber("rope.diameter");
        auto const turns = metres * 1000 / (std::numbers::pi * (getNumber("diameter") + rope));
        auto const turns_a_layer = std::floor(getNumber("width") / rope);
        return static_cast<std::int64_t>(std::ceil(turns / turns_a_layer));
    }
};

ObjectPtr makeDrum() { return std::make_shared<Drum>(); }

/// A static method. The types of the arguments were checked against the signature. `Undefined`, which `Any()`
/// is, says that there is no answer: that is reported at the call (30006).
Any standardPower(std::vector<Any> args) {
    static constexpr std::array powers{0.37, 0.55, 0.75, 1.1, 1.5, 2.2, 3.0, 4.0, 5.5, 7.5};
    return answerOf([&] {
        auto const power = std::ranges::lower_bound(powers, args.at(0).asReal());
        return power == powers.end() ? Any() : Any(*power);
    });
}

/// An operator. It makes a new object, for its operands belong to others.
Any addLoads(Any lhs, Any rhs) {
    return answerOf([&] {
        auto sum = std::make_shared<Object>();
        sum->setDynamic("mass", Any(lhs.asObject()->getNumber("mass") + rhs.asObject()->getNumber("mass")));
        return sum;
    });
}

} // namespace

void registerNatives(Slate::Core::EvaluatorContext& natives) {
    natives.registerFactory("Drum", makeDrum);
    natives.registerStaticMethod("Motor::standardPower", standardPower);
    natives.registerBinaryOperatorMethod("::operator_+::.Load::.Load", addLoads);
}

} // namespace Winch
