#include "ExampleNatives.h"

#include "slate/Object.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Slate::Testing {

namespace {

using Core::Any;
using Core::Object;
using Core::ObjectPtr;

class NativeMotor : public Object {
  public:
    NativeMotor() { appendToTypeList("NativeMotor"); }

    /// The torque falls in a straight line, to none at the synchronous speed.
    Any callDynamic(std::string const& key, std::vector<Any> const& args) override {
        if (key != "torqueAt")
            return Object::callDynamic(key, args);
        auto const synchronous_speed = getNumber("synchronousSpeed");
        auto const share =
            (synchronous_speed - args.at(0).asReal()) / (synchronous_speed - getNumber("ratedSpeed"));
        return Any(share * getNumber("ratedTorque"));
    }
};

class NativeDrum : public Object {
  public:
    Any callDynamic(std::string const& key, std::vector<Any> const& args) override {
        if (key != "energyAt")
            return Object::callDynamic(key, args);
        auto const speed = args.at(0).asReal();
        return Any(getNumber("inertia") * speed * speed / 2);
    }
};

template <typename Native>
ObjectPtr makeNative() {
    return std::make_shared<Native>();
}

struct StockMotor {
    char const* part_number;
    double power;
};

// By power.
constexpr std::array stock_motors{StockMotor{"AM-71-4", 370}, StockMotor{"AM-80-4", 750},
                                  StockMotor{"AM-90-4", 1500}, StockMotor{"AM-112-4", 4000}};

ObjectPtr makeMassPoint(double mass, double position) {
    auto point = std::make_shared<Object>();
    point->setDynamic("mass", Any(mass));
    point->setDynamic("position", Any(position));
    return point;
}

// NOLINTBEGIN(performance-unnecessary-value-param): natives take their arguments by value

Any selectMotor(std::vector<Any> args) {
    auto const* const stock =
        std::ranges::lower_bound(stock_motors, args.at(0).asReal(), {}, &StockMotor::power);
    if (stock == stock_motors.end())
        return {};
    auto motor = std::make_shared<NativeMotor>();
    motor->setDynamic("partNumber", Any(std::string(stock->part_number)));
    motor->setDynamic("ratedPower", Any(stock->power));
    return Any(ObjectPtr(motor));
}

Any joinMassPoints(Any lhs, Any rhs) {
    auto const mass_and_moment = [](Any const& point) {
        auto const mass = point.asObject()->getNumber("mass");
        return std::pair(mass, mass * point.asObject()->getNumber("position"));
    };
    auto const [left_mass, left_moment] = mass_and_moment(lhs);
    auto const [right_mass, right_moment] = mass_and_moment(rhs);
    auto const mass = left_mass + right_mass;
    return Any(makeMassPoint(mass, (left_moment + right_moment) / mass));
}

Any multiplyMassPoint(Any lhs, Any rhs) {
    auto const point = lhs.asObject();
    return Any(makeMassPoint(point->getNumber("mass") * rhs.asReal(), point->getNumber("position")));
}

Any takeMassPointAway(Any operand) { return multiplyMassPoint(operand, Any(-1.0)); }

// NOLINTEND(performance-unnecessary-value-param)

} // namespace

void registerExampleNatives(Core::EvaluatorContext& natives) {
    natives.registerFactory("drives::motors::Motor", makeNative<NativeMotor>);
    natives.registerFactory("drives::Drum", makeNative<NativeDrum>);
    natives.registerStaticMethod("drives::motors::Motor::select", selectMotor);
    natives.registerBinaryOperatorMethod("drives::operator_+::drives.MassPoint::drives.MassPoint",
                                         joinMassPoints);
    natives.registerBinaryOperatorMethod("drives::operator_*::drives.MassPoint::Real", multiplyMassPoint);
    natives.registerUnaryOperatorMethod("drives::operator_-::drives.MassPoint", takeMassPointAway);
}

} // namespace Slate::Testing
