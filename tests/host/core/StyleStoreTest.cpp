#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "support/RegisteredAddOnFixture.h"
#include "support/SdkPrinters.h"
#include "vexhost/Frame.h"
#include "vexhost/HostErrors.h"
#include "vexhost/StateNotifier.h"
#include "vexhost/View3D.h"
#include "vxsdkbase.h"
#include "vxtoolbox.h"

namespace {

using vexhost::StyleStore;
using vexplot::toolbox::ArgList;
using vexplot::toolbox::StyleValue;
using vextest::ScopedLock;

using StyleStoreTest = vextest::RegisteredAddOnFixture;

struct DoubleDefault {
    StyleStore::Path path;
    double value;
};

TEST_F(StyleStoreTest, StoredDoubleValuesHaveTheirDefaults) {
    const std::vector<DoubleDefault> rows = {
        {{"GlobalThreeD", "LightSource", "Intensity"}, 75},
        {{"GlobalThreeD", "LightSource", "BackgroundLight"}, 25},
        {{"StreamAttributes", "StreamTiming", "TimeAnchor"}, 0},
        {{"StreamAttributes", "StreamTiming", "DeltaTime"}, 1},
        {{"ExportSetup", "AnimationSpeed"}, 10},
    };
    for (const DoubleDefault& row : rows) {
        ArgList args;
        const char* names[] = {VEXARG_P1, VEXARG_P2, VEXARG_P3};
        for (std::size_t i = 0; i < row.path.size(); ++i)
            args.appendString(names[i], row.path[i].c_str());
        double value = -1;
        args.appendDoublePtr(VEXARG_VALUE, &value);
        EXPECT_EQ(VexUtilStyleGetLowLevelX(args.data(), args.size()), VexGetValue_Ok)
            << row.path.back();
        EXPECT_EQ(value, row.value) << row.path.back();
    }
}

struct BoolDefault {
    StyleStore::Path path;
    bool value;
};

TEST_F(StyleStoreTest, StoredBoolValuesHaveTheirDefaults) {
    const std::vector<BoolDefault> rows = {
        {{"ThreeDAxis", "FrameAxis", "Show"}, true},
        {{"StreamAttributes", "StreamTiming", "ShowMarkers"}, false},
        {{"StreamAttributes", "StreamTiming", "ShowDashes"}, false},
        {{"Interface", "UseDisplayLists"}, true},
        {{"ExportSetup", "UseSuperSampleAntiAliasing"}, false},
    };
    for (const BoolDefault& row : rows)
        EXPECT_EQ(host().style().getBool(row.path), row.value) << row.path.back();
}

struct IntDefault {
    const char* attribute;
    int64_t value;
};

TEST_F(StyleStoreTest, ExportSetupHasItsDefaults) {
    const std::vector<IntDefault> rows = {{"ExportFormat", VexExportFormat_MPEG4},
                                          {"ExportRegion", VexExportRegion_CurrentFrame},
                                          {"ImageWidth", 800},
                                          {"SuperSampleFactor", 3},
                                          {"FlashImageType", VexFlashImageType_Lossless},
                                          {"FlashCompressionType", 0}};
    for (const IntDefault& row : rows) {
        int64_t value = -1;
        EXPECT_EQ(StyleValue("ExportSetup").get(value, row.attribute), VexGetValue_Ok);
        EXPECT_EQ(value, row.value) << row.attribute;
    }
    std::string name = "unchanged";
    EXPECT_EQ(StyleValue("ExportSetup", "ExportFName").get(name), VexGetValue_Ok);
    EXPECT_EQ(name, "");
}

TEST_F(StyleStoreTest, EveryPathIsListedWithItsType) {
    const std::vector<StyleStore::Path> paths = host().style().paths();
    EXPECT_EQ(paths.size(), 29u);
    for (const StyleStore::Path& path : paths)
        EXPECT_TRUE(host().style().typeOf(path).has_value());
    EXPECT_EQ(host().style().typeOf({"ThreeDView", "DrawInPerspective"}),
              StyleStore::ValueType::Bool);
    EXPECT_EQ(host().style().typeOf({"ExportSetup", "ExportFName"}), StyleStore::ValueType::String);
    EXPECT_FALSE(host().style().typeOf({"ThreeDView"}).has_value());
}

TEST_F(StyleStoreTest, PathsMatchWithoutRegardToCase) {
    double intensity = 0;
    EXPECT_EQ(StyleValue("globalthreed", "LIGHTSOURCE", "intensity").get(intensity),
              VexGetValue_Ok);
    EXPECT_EQ(intensity, 75);
}

TEST_F(StyleStoreTest, UnknownPathFailsWithTheSdkCodes) {
    ScopedLock lock(addOn_);
    double value = 5;
    EXPECT_EQ(StyleValue("GlobalThreeD", "LightSource", "Colour").get(value),
              VexGetValue_InvalidPath);
    EXPECT_EQ(value, 5);
    EXPECT_EQ(StyleValue("GlobalThreeD", "LightSource", "Colour").set(1.0),
              VexSetValue_InvalidCommandOption);
    // A branch of the tree is not a value.
    EXPECT_EQ(StyleValue("GlobalThreeD", "LightSource").get(value), VexGetValue_InvalidPath);
    EXPECT_EQ(StyleValue("GlobalThreeD", "LightSource", "Intensity", "X").set(1.0),
              VexSetValue_InvalidCommandOption);
    EXPECT_TRUE(host().errors().empty()) << "an unknown path is no host error";
}

TEST_F(StyleStoreTest, RefusedPathLeavesTheValueUntouched) {
    const StyleStore::Path path = {"GlobalThreeD", "LightSource", "Intensity"};
    host().style().refuse(path, false, true);
    ScopedLock lock(addOn_);
    const StyleValue intensity("GlobalThreeD", "LightSource", "Intensity");
    EXPECT_EQ(intensity.set(10.0), VexSetValue_ContextError);
    double value = -1;
    EXPECT_EQ(intensity.get(value), VexGetValue_Ok);
    EXPECT_EQ(value, 75);

    host().style().refuse(path, true, false);
    value = -1;
    EXPECT_EQ(intensity.get(value), VexGetValue_ContextError);
    EXPECT_EQ(value, -1);
    EXPECT_EQ(intensity.set(10.0), VexSetValue_Ok);

    host().style().clearRefusals();
    EXPECT_EQ(intensity.get(value), VexGetValue_Ok);
    EXPECT_EQ(value, 10);
    EXPECT_THROW(host().style().refuse({"No", "Such"}, true, true), std::invalid_argument);
}

TEST_F(StyleStoreTest, IntegersAndDoublesInterconvert) {
    ScopedLock lock(addOn_);
    const StyleValue setup("ExportSetup");
    EXPECT_EQ(setup.set(640.0, "ImageWidth"), VexSetValue_Ok);
    int64_t width = 0;
    EXPECT_EQ(setup.get(width, "ImageWidth"), VexGetValue_Ok);
    EXPECT_EQ(width, 640);
    double widthAsDouble = 0;
    EXPECT_EQ(setup.get(widthAsDouble, "ImageWidth"), VexGetValue_Ok);
    EXPECT_EQ(widthAsDouble, 640);
    EXPECT_EQ(setup.set(640.5, "ImageWidth"), VexSetValue_InvalidValue) << "not a whole number";

    const StyleValue light("GlobalThreeD", "LightSource");
    EXPECT_EQ(light.set(int64_t{40}, "Intensity"), VexSetValue_Ok);
    EXPECT_EQ(light.set(33.6, "BackgroundLight"), VexSetValue_Ok);
    int64_t rounded = 0;
    EXPECT_EQ(light.get(rounded, "BackgroundLight"), VexGetValue_Ok);
    EXPECT_EQ(rounded, 34) << "a double read as an integer is rounded";
    double intensity = 0;
    EXPECT_EQ(light.get(intensity, "Intensity"), VexGetValue_Ok);
    EXPECT_EQ(intensity, 40);
}

TEST_F(StyleStoreTest, BoolIsOnlyABoolAndStringOnlyAString) {
    ScopedLock lock(addOn_);
    const StyleValue light("GlobalThreeD", "LightSource", "Intensity");
    EXPECT_EQ(light.set(true), VexSetValue_InvalidValue);
    bool flag = false;
    EXPECT_EQ(light.get(flag), VexGetValue_WrongType);
    const StyleValue axis("ThreeDAxis", "FrameAxis", "Show");
    EXPECT_EQ(axis.set(1.0), VexSetValue_InvalidValue);
    double number = 0;
    EXPECT_EQ(axis.get(number), VexGetValue_WrongType);
    const StyleValue fileName("ExportSetup", "ExportFName");
    EXPECT_EQ(fileName.set(int64_t{3}), VexSetValue_InvalidValue);
    EXPECT_EQ(fileName.get(number), VexGetValue_WrongType);
    std::string text;
    EXPECT_EQ(light.get(text), VexGetValue_WrongType);
}

struct RangeCase {
    const char* name;
    StyleStore::Path path;
    double value;
};

TEST_F(StyleStoreTest, ValueOutsideItsRangeIsRefusedAndNothingChanges) {
    createFrame3D();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const std::vector<RangeCase> rows = {
        {"intensity above 100", {"GlobalThreeD", "LightSource", "Intensity"}, 100.5},
        {"background below 0", {"GlobalThreeD", "LightSource", "BackgroundLight"}, -1},
        {"not a number", {"GlobalThreeD", "LightSource", "Intensity"}, nan},
        {"infinite anchor", {"StreamAttributes", "StreamTiming", "TimeAnchor"}, inf},
        {"delta time 0", {"StreamAttributes", "StreamTiming", "DeltaTime"}, 0},
        {"width 0", {"ThreeDView", "ViewWidth"}, 0},
        {"field of view 180", {"ThreeDView", "FieldOfView"}, 180},
        {"format 23", {"ExportSetup", "ExportFormat"}, 23},
        {"region 3", {"ExportSetup", "ExportRegion"}, 3},
        {"width 0", {"ExportSetup", "ImageWidth"}, 0},
        {"speed 0", {"ExportSetup", "AnimationSpeed"}, 0},
        {"factor 1", {"ExportSetup", "SuperSampleFactor"}, 1},
        {"factor 17", {"ExportSetup", "SuperSampleFactor"}, 17},
        {"image type 3", {"ExportSetup", "FlashImageType"}, 3},
        {"compression 255", {"ExportSetup", "FlashCompressionType"}, 255},
    };
    for (const RangeCase& row : rows) {
        const double before = host().style().getDouble(row.path);
        EXPECT_EQ(host().style().setDouble(row.path, row.value), VexSetValue_InvalidValue)
            << row.name;
        EXPECT_EQ(host().style().getDouble(row.path), before) << row.name;
    }
}

TEST_F(StyleStoreTest, StringValueIsHandedOutAsAHostString) {
    ScopedLock lock(addOn_);
    const StyleValue fileName("ExportSetup", "ExportFName");
    EXPECT_EQ(fileName.set("movie ü.mp4"), VexSetValue_Ok);
    std::string text;
    EXPECT_EQ(fileName.get(text), VexGetValue_Ok);
    EXPECT_EQ(text, "movie ü.mp4");
    EXPECT_EQ(host().bookkeeping().handedOut(vexhost::Bookkeeping::Kind::String), 1u);
}

TEST_F(StyleStoreTest, SuccessfulSdkSetSendsTheStyleStateChange) {
    ScopedLock lock(addOn_);
    const StyleValue intensity("GlobalThreeD", "LightSource", "Intensity");
    EXPECT_EQ(intensity.set(50.0), VexSetValue_Ok);
    EXPECT_EQ(host().stateChanges().sentCount(VexStateChange_Style), 1u);
    EXPECT_EQ(intensity.set(500.0), VexSetValue_InvalidValue);
    EXPECT_EQ(host().stateChanges().sentCount(VexStateChange_Style), 1u);
    EXPECT_EQ(host().style().setDouble({"GlobalThreeD", "LightSource", "Intensity"}, 20),
              VexSetValue_Ok);
    EXPECT_EQ(host().stateChanges().sentCount(VexStateChange_Style), 1u)
        << "control calls send nothing";
}

TEST_F(StyleStoreTest, ThreeDViewValuesActOnTheActiveFrame) {
    vexhost::Frame& lower = createFrame3D();
    vexhost::Frame& upper = createFrame3D();
    ScopedLock lock(addOn_);
    const StyleValue view("ThreeDView");
    EXPECT_EQ(view.set(-12.0, "ViewerPosition", "Y"), VexSetValue_Ok);
    EXPECT_EQ(view.set(2.0, "RotateOrigin", "Z"), VexSetValue_Ok);
    EXPECT_EQ(view.set(45.0, "FieldOfView"), VexSetValue_Ok);
    EXPECT_EQ(view.set(true, "DrawInPerspective"), VexSetValue_Ok);
    EXPECT_EQ(upper.view().position()[1], -12);
    EXPECT_EQ(upper.view().rotateOrigin()[2], 2);
    EXPECT_EQ(upper.view().fieldOfView(), 45);
    EXPECT_TRUE(upper.view().perspective());
    EXPECT_EQ(lower.view(), vexhost::View3D());
    double y = 0;
    EXPECT_EQ(view.get(y, "ViewerPosition", "Y"), VexGetValue_Ok);
    EXPECT_EQ(y, -12);
}

TEST_F(StyleStoreTest, ThreeDViewValueWithoutAFrameIsAContextError) {
    ScopedLock lock(addOn_);
    EXPECT_EQ(StyleValue("ThreeDView", "ViewWidth").set(3.0), VexSetValue_ContextError);
    double width = 0;
    EXPECT_EQ(StyleValue("ThreeDView", "ViewWidth").get(width), VexGetValue_ContextError);
    EXPECT_EQ(takeHostErrors(),
              (std::vector<std::string>{
                  "VexUtilStyleSetLowLevelX: there is no frame for the 3D view value "
                  "(\"ThreeDView\", \"ViewWidth\")",
                  "VexUtilStyleGetLowLevelX: there is no frame for the 3D view value "
                  "(\"ThreeDView\", \"ViewWidth\")"}));
}

struct MalformedCase {
    const char* name;
    std::vector<VexArg_s> args;
    VexSetValueReturnCode_e code;
    const char* error;
};

VexArg_s text(const char* name, const char* value) {
    VexArg_s arg{};
    arg.name = name;
    arg.type = VexArgType_String;
    arg.value.s = value;
    return arg;
}

VexArg_s number(const char* name, double value) {
    VexArg_s arg{};
    arg.name = name;
    arg.type = VexArgType_Double;
    arg.value.d = value;
    return arg;
}

TEST_F(StyleStoreTest, MalformedArgumentListIsAHostError) {
    double out = 0;
    VexArg_s pointer{};
    pointer.name = VEXARG_VALUE;
    pointer.type = VexArgType_DoublePtr;
    pointer.value.dp = &out;
    const std::vector<MalformedCase> rows = {
        {"no value",
         {text("P1", "Interface"), text("P2", "UseDisplayLists")},
         VexSetValue_InvalidValue,
         "VexUtilStyleSetLowLevelX: no VALUE given"},
        {"gap in the path",
         {text("P1", "ThreeDView"), text("P3", "X"), number("VALUE", 1)},
         VexSetValue_InvalidCommandOption,
         "VexUtilStyleSetLowLevelX: path word P3 without P2"},
        {"unknown argument",
         {text("P1", "ThreeDView"), text("COLOR", "X"), number("VALUE", 1)},
         VexSetValue_InvalidCommandOption,
         "VexUtilStyleSetLowLevelX: unknown argument name \"COLOR\""},
        {"pointer to a set",
         {text("P1", "GlobalThreeD"), text("P2", "LightSource"), text("P3", "Intensity"), pointer},
         VexSetValue_InvalidValue,
         "VexUtilStyleSetLowLevelX: VALUE must be a value, not a pointer"},
        {"no path",
         {number("VALUE", 1)},
         VexSetValue_InvalidCommandOption,
         "VexUtilStyleSetLowLevelX: no path (P1) given"},
    };
    ScopedLock lock(addOn_);
    for (const MalformedCase& row : rows) {
        EXPECT_EQ(VexUtilStyleSetLowLevelX(row.args.data(), static_cast<int32_t>(row.args.size())),
                  row.code)
            << row.name;
        EXPECT_EQ(takeHostErrors(), std::vector<std::string>{row.error}) << row.name;
    }
}

TEST_F(StyleStoreTest, PathWordsMayComeInAnyOrder) {
    ScopedLock lock(addOn_);
    const std::vector<VexArg_s> args = {number("VALUE", 42), text("P3", "Intensity"),
                                        text("P1", "GlobalThreeD"), text("P2", "LightSource")};
    EXPECT_EQ(VexUtilStyleSetLowLevelX(args.data(), 4), VexSetValue_Ok);
    EXPECT_EQ(host().style().getDouble({"GlobalThreeD", "LightSource", "Intensity"}), 42);
}

TEST_F(StyleStoreTest, ControlSettersIgnoreRefusalsButKeepTheRules) {
    const StyleStore::Path path = {"StreamAttributes", "StreamTiming", "DeltaTime"};
    host().style().refuse(path, true, true);
    EXPECT_EQ(host().style().setDouble(path, 0.5), VexSetValue_Ok);
    EXPECT_EQ(host().style().getDouble(path), 0.5);
    EXPECT_EQ(host().style().setBool(path, true), VexSetValue_InvalidValue);
    EXPECT_EQ(host().style().setDouble({"Nothing"}, 1), VexSetValue_InvalidCommandOption);
    EXPECT_THROW(host().style().getDouble({"Nothing"}), std::invalid_argument);
    EXPECT_THROW(host().style().getString(path), std::invalid_argument);
    EXPECT_THROW(host().style().getDouble({"ThreeDView", "ViewWidth"}), std::logic_error);
}

TEST_F(StyleStoreTest, ResetRestoresEveryDefault) {
    host().style().setDouble({"GlobalThreeD", "LightSource", "Intensity"}, 1);
    host().style().setBool({"Interface", "UseDisplayLists"}, false);
    host().style().setString({"ExportSetup", "ExportFName"}, "x.mp4");
    host().style().refuse({"Interface", "UseDisplayLists"}, true, true);
    host().reset();
    EXPECT_EQ(host().style().getDouble({"GlobalThreeD", "LightSource", "Intensity"}), 75);
    bool useDisplayLists = false;
    EXPECT_EQ(StyleValue("Interface", "UseDisplayLists").get(useDisplayLists), VexGetValue_Ok);
    EXPECT_TRUE(useDisplayLists);
    EXPECT_EQ(host().style().getString({"ExportSetup", "ExportFName"}), "");
}

}  // namespace
