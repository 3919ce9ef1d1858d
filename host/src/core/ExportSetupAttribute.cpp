#include "core/ExportSetupAttribute.h"

#include <algorithm>
#include <stdexcept>

#include "core/Text.h"
#include "vxsdkbase.h"

namespace vexhost {

namespace {

using ValueType = StyleStore::ValueType;

constexpr ValueType typeOfField(int ExportSettings::*) {
    return ValueType::Int;
}
constexpr ValueType typeOfField(double ExportSettings::*) {
    return ValueType::Double;
}
constexpr ValueType typeOfField(bool ExportSettings::*) {
    return ValueType::Bool;
}
constexpr ValueType typeOfField(std::string ExportSettings::*) {
    return ValueType::String;
}

}  // namespace

const std::vector<ExportSetupAttribute>& ExportSetupAttribute::all() {
    using Range = ValueRange;
    // Keywords in the order of the messages that list them: the formats alphabetically, the other
    // enumerations by value.
    static const std::vector<ExportSetupAttribute> attributes = {
        {"ExportFormat",
         &ExportSettings::format,
         Range::closed(VexExportFormat_RasterMetafile, VexExportFormat_WMV),
         {{"AVI", VexExportFormat_AVI, "AVI"},
          {"FLV", VexExportFormat_FLV, "Flash (FLV)"},
          {"FLASH", VexExportFormat_Flash, "Flash (SWF)"},
          {"MPEG4", VexExportFormat_MPEG4, "MPEG-4"},
          {"RASTERMETAFILE", VexExportFormat_RasterMetafile, "Raster Metafile"},
          {"WMV", VexExportFormat_WMV, "WMV"}}},
        {"ExportRegion",
         &ExportSettings::region,
         Range::closed(VexExportRegion_CurrentFrame, VexExportRegion_WorkArea),
         {{"CURRENTFRAME", VexExportRegion_CurrentFrame, "Current Frame"},
          {"ALLFRAMES", VexExportRegion_AllFrames, "All Frames"},
          {"WORKAREA", VexExportRegion_WorkArea, "Work Area"}}},
        {"ImageWidth", &ExportSettings::imageWidth, Range::closed(1, 32766), {}},
        // Frames per second.
        {"AnimationSpeed", &ExportSettings::animationSpeed, Range::aboveUpTo(0, 1000), {}},
        {"UseSuperSampleAntiAliasing", &ExportSettings::useSuperSampling, Range::any(), {}},
        {"SuperSampleFactor", &ExportSettings::superSampleFactor, Range::closed(2, 16), {}},
        {"FlashImageType",
         &ExportSettings::flashImageType,
         Range::closed(VexFlashImageType_Lossless, VexFlashImageType_Color256),
         {{"LOSSLESS", VexFlashImageType_Lossless, "True Color"},
          {"JPEG", VexFlashImageType_JPEG, "JPEG"},
          {"256COLOR", VexFlashImageType_Color256, "256 Colors"}}},
        {"FlashCompressionType",
         &ExportSettings::flashCompressionType,
         Range::closed(VexFlashCompressionType_BestSpeed, VexFlashCompressionType_SmallestSize),
         {{"BESTSPEED", VexFlashCompressionType_BestSpeed, "Optimize for Speed"},
          {"SMALLESTSIZE", VexFlashCompressionType_SmallestSize, "Optimize for File Size"}}},
        {"ExportFName", &ExportSettings::fileName, Range::any(), {}},
    };
    return attributes;
}

StyleStore::ValueType ExportSetupAttribute::type() const {
    return std::visit([](auto member) { return typeOfField(member); }, field);
}

const ExportSetupAttribute::Keyword* ExportSetupAttribute::keyword(int value) const {
    for (const Keyword& candidate : keywords) {
        if (candidate.value == value)
            return &candidate;
    }
    return nullptr;
}

const ExportSetupAttribute::Keyword* ExportSetupAttribute::keyword(std::string_view word) const {
    for (const Keyword& candidate : keywords) {
        if (text::equalsIgnoringCase(candidate.word, word))
            return &candidate;
    }
    return nullptr;
}

std::string ExportSetupAttribute::describeValues() const {
    std::vector<Keyword> byValue = keywords;
    std::sort(byValue.begin(), byValue.end(),
              [](const Keyword& a, const Keyword& b) { return a.value < b.value; });
    std::vector<std::string> values;
    for (const Keyword& k : byValue)
        values.push_back(std::to_string(k.value) + " (" + k.name + ")");
    return text::listOf(values, "and");
}

const ExportSetupAttribute* ExportSetupAttribute::find(std::string_view name) {
    for (const ExportSetupAttribute& attribute : all()) {
        if (text::equalsIgnoringCase(attribute.name, name))
            return &attribute;
    }
    return nullptr;
}

const ExportSetupAttribute& ExportSetupAttribute::of(Field field) {
    for (const ExportSetupAttribute& attribute : all()) {
        if (attribute.field == field)
            return attribute;
    }
    throw std::logic_error(
        "ExportSetupAttribute::of(): a field of ExportSettings has no attribute");
}

bool ExportSetupAttribute::isMovieFormat(int format) {
    return of(&ExportSettings::format).keyword(format) != nullptr;
}

}  // namespace vexhost
