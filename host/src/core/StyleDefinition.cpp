#include "core/StyleDefinition.h"

#include <limits>
#include <variant>

#include "core/ExportSetupAttribute.h"

namespace vexhost {

namespace {

using ValueType = StyleStore::ValueType;
using ViewBinding = StyleDefinition::ViewBinding;
using Words = std::array<std::string_view, StyleDefinition::MaxDepth>;

constexpr ValueRange Percent = ValueRange::closed(0, 100);  // lighting, of full strength
constexpr ValueRange AboveZero = ValueRange::aboveUpTo(0, std::numeric_limits<double>::infinity());

template <double (View3D::*Read)() const, void (View3D::*Write)(double)>
ViewBinding viewNumber() {
    return {[](const View3D& view) { return (view.*Read)(); },
            [](View3D& view, double value) { (view.*Write)(value); }};
}

// One axis of a point of the view; setting it leaves the other two as they are.
template <const View3D::Vector& (View3D::*Read)() const, void (View3D::*Write)(int, double),
          int Axis>
ViewBinding viewComponent() {
    return {[](const View3D& view) { return (view.*Read)()[Axis]; },
            [](View3D& view, double value) { (view.*Write)(Axis, value); }};
}

int depthOf(const Words& words) {
    int depth = 0;
    while (depth < StyleDefinition::MaxDepth && !words[depth].empty())
        ++depth;
    return depth;
}

StyleDefinition define(const Words& words, ValueType type, ValueRange range = ValueRange::any()) {
    return {words, depthOf(words), type, range, 0, false, std::string(), ViewBinding()};
}

StyleDefinition stored(const Words& words, double byDefault, ValueRange range = ValueRange::any()) {
    StyleDefinition definition = define(words, ValueType::Double, range);
    definition.defaultNumber = byDefault;
    return definition;
}

StyleDefinition storedFlag(const Words& words, bool byDefault) {
    StyleDefinition definition = define(words, ValueType::Bool);
    definition.defaultBool = byDefault;
    return definition;
}

// The view's own defaults are those of a new frame (View3D); the store keeps none.
StyleDefinition inView(const Words& words, ViewBinding binding,
                       ValueRange range = ValueRange::any()) {
    StyleDefinition definition = define(words, ValueType::Double, range);
    definition.view = binding;
    return definition;
}

StyleDefinition perspectiveInView(const Words& words) {
    StyleDefinition definition = define(words, ValueType::Bool);
    definition.view.readFlag = [](const View3D& view) { return view.perspective(); };
    definition.view.writeFlag = [](View3D& view, bool on) { view.setPerspective(on); };
    return definition;
}

void setDefault(StyleDefinition& definition, int value) {
    definition.defaultNumber = value;
}
void setDefault(StyleDefinition& definition, double value) {
    definition.defaultNumber = value;
}
void setDefault(StyleDefinition& definition, bool value) {
    definition.defaultBool = value;
}
void setDefault(StyleDefinition& definition, const std::string& value) {
    definition.defaultText = value;
}

// The export setup's defaults are those of a default ExportSettings.
StyleDefinition exportSetup(const ExportSetupAttribute& attribute) {
    static const ExportSettings Defaults;
    StyleDefinition definition =
        define({ExportSetupAttribute::PathWord, attribute.name}, attribute.type(), attribute.range);
    std::visit([&definition](auto field) { setDefault(definition, Defaults.*field); },
               attribute.field);
    return definition;
}

}  // namespace

const std::vector<StyleDefinition>& StyleDefinition::all() {
    static const std::vector<StyleDefinition> definitions = [] {
        using V = View3D;
        std::vector<StyleDefinition> rows = {
            inView({"ThreeDView", "PSIAngle"}, viewNumber<&V::psi, &V::setPsi>()),
            inView({"ThreeDView", "ThetaAngle"}, viewNumber<&V::theta, &V::setTheta>()),
            inView({"ThreeDView", "AlphaAngle"}, viewNumber<&V::alpha, &V::setAlpha>()),
            inView({"ThreeDView", "ViewerPosition", "X"},
                   viewComponent<&V::position, &V::setPositionComponent, 0>()),
            inView({"ThreeDView", "ViewerPosition", "Y"},
                   viewComponent<&V::position, &V::setPositionComponent, 1>()),
            inView({"ThreeDView", "ViewerPosition", "Z"},
                   viewComponent<&V::position, &V::setPositionComponent, 2>()),
            inView({"ThreeDView", "ViewWidth"}, viewNumber<&V::width, &V::setWidth>(), AboveZero),
            inView({"ThreeDView", "FieldOfView"}, viewNumber<&V::fieldOfView, &V::setFieldOfView>(),
                   ValueRange::open(0, 180)),
            perspectiveInView({"ThreeDView", "DrawInPerspective"}),
            inView({"ThreeDView", "RotateOrigin", "X"},
                   viewComponent<&V::rotateOrigin, &V::setRotateOriginComponent, 0>()),
            inView({"ThreeDView", "RotateOrigin", "Y"},
                   viewComponent<&V::rotateOrigin, &V::setRotateOriginComponent, 1>()),
            inView({"ThreeDView", "RotateOrigin", "Z"},
                   viewComponent<&V::rotateOrigin, &V::setRotateOriginComponent, 2>()),
            stored({"GlobalThreeD", "LightSource", "Intensity"}, 75, Percent),
            stored({"GlobalThreeD", "LightSource", "BackgroundLight"}, 25, Percent),
            storedFlag({"ThreeDAxis", "FrameAxis", "Show"}, true),
            stored({"StreamAttributes", "StreamTiming", "TimeAnchor"}, 0),
            stored({"StreamAttributes", "StreamTiming", "DeltaTime"}, 1, AboveZero),
            storedFlag({"StreamAttributes", "StreamTiming", "ShowMarkers"}, false),
            storedFlag({"StreamAttributes", "StreamTiming", "ShowDashes"}, false),
            storedFlag({"Interface", "UseDisplayLists"}, true),
        };
        for (const ExportSetupAttribute& attribute : ExportSetupAttribute::all())
            rows.push_back(exportSetup(attribute));
        return rows;
    }();
    return definitions;
}

}  // namespace vexhost
