#include "simulator/TraceShapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace sim {
namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;

struct Shape {
    std::string_view name;
    double (*value)(double part);  // of the trace, from 0 to below 1
};

constexpr auto kShapes = std::to_array<Shape>({
    {"sine", [](double part) { return std::sin(kTurn * part); }},
    {"triangle", [](double part) { return -std::fabs(part - 0.5); }},
    {"square", [](double part) { return part < 0.5 ? 1.0 : 0.0; }},
    {"ramp", [](double part) { return part; }},
    {"pulse", [](double part) { return std::exp(-std::pow((part - 0.5) * 20.0, 2)); }},
    {"burst", [](double part) { return std::sin(16.0 * kTurn * part) * std::exp(-5.0 * part); }},
});

}  // namespace

std::optional<Trace> TraceShape(std::string_view name) {
    const auto* shape = std::ranges::find(kShapes, name, &Shape::name);
    if (shape == kShapes.end()) {
        return std::nullopt;
    }
    std::vector<double> values(kTraceSamples);
    for (std::size_t i = 0; i < kTraceSamples; ++i) {
        values[i] = shape->value(static_cast<double>(i) / kTraceSamples);
    }
    return MakeTrace(values);
}

std::string TraceShapeNames() {
    std::string names;
    for (const Shape& shape : kShapes) {
        names += (names.empty() ? "" : ", ") + std::string(shape.name);
    }
    return names;
}

}  // namespace sim
