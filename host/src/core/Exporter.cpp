#include "vexhost/Exporter.h"

#include <algorithm>
#include <cstring>
#include <exception>

#include "core/NullMovieWriter.h"
#include "vexhost/Host.h"

namespace vexhost {

namespace {

enum class SetupKind { Int, Bool, Double, FileName };

struct SetupAttribute {
    const char* name;
    SetupKind kind;
};

const SetupAttribute SetupAttributes[] = {
    {"ExportFormat", SetupKind::Int},
    {"ExportRegion", SetupKind::Int},
    {"ImageWidth", SetupKind::Int},
    {"AnimationSpeed", SetupKind::Double},
    {"UseSuperSampleAntiAliasing", SetupKind::Bool},
    {"SuperSampleFactor", SetupKind::Int},
    {"FlashImageType", SetupKind::Int},
    {"FlashCompressionType", SetupKind::Int},
    {"ExportFName", SetupKind::FileName},
};

bool equalsIgnoringCase(const char* a, const char* b) {
    for (; *a != '\0' && *b != '\0'; ++a, ++b) {
        const char ca = (*a >= 'A' && *a <= 'Z') ? static_cast<char>(*a + 32) : *a;
        const char cb = (*b >= 'A' && *b <= 'Z') ? static_cast<char>(*b + 32) : *b;
        if (ca != cb)
            return false;
    }
    return *a == *b;
}

StyleStore::Path setupPath(const char* attribute) {
    return {"ExportSetup", attribute};
}

}  // namespace

Exporter::Exporter(Host& host) : host_(host) {}

Exporter::~Exporter() {
    if (writer_ != nullptr) {
        try {
            writer_->cancel();
        } catch (...) {
            // Going away: nothing left to tell.
        }
    }
}

ExportSettings Exporter::settings() const {
    StyleStore& style = host_.style();
    ExportSettings s;
    s.format = static_cast<int>(style.getInt(setupPath("ExportFormat")));
    s.region = static_cast<int>(style.getInt(setupPath("ExportRegion")));
    s.imageWidth = static_cast<int>(style.getInt(setupPath("ImageWidth")));
    s.animationSpeed = style.getDouble(setupPath("AnimationSpeed"));
    s.useSuperSampling = style.getBool(setupPath("UseSuperSampleAntiAliasing"));
    s.superSampleFactor = static_cast<int>(style.getInt(setupPath("SuperSampleFactor")));
    s.flashImageType = static_cast<int>(style.getInt(setupPath("FlashImageType")));
    s.flashCompressionType = static_cast<int>(style.getInt(setupPath("FlashCompressionType")));
    s.fileName = style.getString(setupPath("ExportFName"));
    return s;
}

std::pair<int, int> Exporter::imageSize() const {
    FrameStack& frames = host_.frames();
    const double ppi = FrameStack::PixelsPerInch;
    int64_t regionWidth = frames.workAreaWidth(), regionHeight = frames.workAreaHeight();
    const ExportSettings s = settings();
    if (s.region == VexExportRegion_CurrentFrame && frames.active() != nullptr) {
        regionWidth = static_cast<int64_t>(frames.active()->width() * ppi);
        regionHeight = static_cast<int64_t>(frames.active()->height() * ppi);
    } else if (s.region == VexExportRegion_AllFrames && !frames.empty()) {
        double left = frames.at(0).x(), top = frames.at(0).y();
        double right = left + frames.at(0).width(), bottom = top + frames.at(0).height();
        for (int i = 1; i < frames.count(); ++i) {
            const Frame& f = frames.at(static_cast<std::size_t>(i));
            left = std::min(left, f.x());
            top = std::min(top, f.y());
            right = std::max(right, f.x() + f.width());
            bottom = std::max(bottom, f.y() + f.height());
        }
        regionWidth = static_cast<int64_t>((right - left) * ppi);
        regionHeight = static_cast<int64_t>((bottom - top) * ppi);
    }
    regionWidth = std::max<int64_t>(regionWidth, 1);
    // The picture keeps the region's shape at the chosen width (multiplication first, as whole
    // pixels).
    const int64_t height = std::max<int64_t>(s.imageWidth * regionHeight / regionWidth, 1);
    return {s.imageWidth, static_cast<int>(height)};
}

void Exporter::setMovieWriterFactory(MovieWriterFactory factory) {
    factory_ = std::move(factory);
}

std::vector<std::string> Exporter::takeLog() {
    std::vector<std::string> taken;
    taken.swap(log_);
    return taken;
}

VexSetValueReturnCode_e Exporter::setup(const char* attribute, const char* subAttribute,
                                        double doubleValue, VexArbParam_t intValue) {
    if (attribute == nullptr || (subAttribute != nullptr && *subAttribute != '\0'))
        return VexSetValue_InvalidCommandOption;
    const SetupAttribute* found = nullptr;
    for (const SetupAttribute& candidate : SetupAttributes) {
        if (equalsIgnoringCase(candidate.name, attribute))
            found = &candidate;
    }
    if (found == nullptr)
        return VexSetValue_InvalidCommandOption;
    StyleStore& style = host_.style();
    const StyleStore::Path path = setupPath(found->name);
    switch (found->kind) {
        case SetupKind::Int:
            return style.setInt(path, static_cast<int64_t>(intValue));
        case SetupKind::Double:
            return style.setDouble(path, doubleValue);
        case SetupKind::Bool:
            if (intValue != 0 && intValue != 1)
                return VexSetValue_InvalidValue;
            return style.setBool(path, intValue != 0);
        case SetupKind::FileName: {
            const char* name = reinterpret_cast<const char*>(intValue);
            if (name == nullptr)
                return VexSetValue_InvalidValue;
            return style.setString(path, name);
        }
    }
    return VexSetValue_InvalidCommandOption;
}

bool Exporter::start() {
    if (recording_)
        return false;
    if (refuseStart_) {
        log_.push_back("Export not started: the host was told to refuse export starts.");
        return false;
    }
    if (host_.frames().active() == nullptr) {
        host_.errors().record("VexUtilExportStart", "there is no frame to export");
        return false;
    }
    const ExportSettings s = settings();
    const std::pair<int, int> size = imageSize();
    std::unique_ptr<MovieWriter> writer =
        factory_ ? factory_(s) : std::make_unique<NullMovieWriter>();
    if (writer == nullptr) {
        log_.push_back("Export not started: no movie writer for export format " +
                       std::to_string(s.format) + ".");
        return false;
    }
    try {
        writer->open(s, size.first, size.second);
    } catch (const std::exception& error) {
        log_.push_back(std::string("Export not started: ") + error.what());
        return false;
    }
    writer_ = std::move(writer);
    width_ = size.first;
    height_ = size.second;
    supersample_ = s.useSuperSampling ? s.superSampleFactor : 1;
    recording_ = true;
    frameCount_ = 0;
    ++counts_.starts;
    log_.push_back("Export started: format " + std::to_string(s.format) + ", " +
                   std::to_string(width_) + " x " + std::to_string(height_) + " pixels, to \"" +
                   s.fileName + "\".");
    host_.trace().writeEvent("export-start");
    takePicture();
    return true;
}

bool Exporter::nextFrame() {
    if (!recording_) {
        host_.errors().record("VexUtilExportNextFrame", "no export is being recorded");
        return false;
    }
    host_.trace().writeEvent("export-frame");
    return takePicture();
}

bool Exporter::finish() {
    if (!recording_) {
        host_.errors().record("VexUtilExportFinish", "no export is being recorded");
        return false;
    }
    host_.trace().writeEvent("export-finish");
    recording_ = false;
    if (writer_ == nullptr) {
        log_.push_back("Export failed after " + std::to_string(frameCount_) +
                       " frames; no movie written.");
        return false;
    }
    try {
        writer_->finish();
    } catch (const std::exception& error) {
        writerFailed("finishing the movie", error);
        return false;
    }
    log_.push_back(writer_->summary());
    writer_.reset();
    ++counts_.finishes;
    return true;
}

bool Exporter::cancel() {
    if (!recording_) {
        host_.errors().record("VexUtilExportCancel", "no export is being recorded");
        return false;
    }
    host_.trace().writeEvent("export-cancel");
    recording_ = false;
    ++counts_.cancels;
    if (writer_ != nullptr) {
        try {
            writer_->cancel();
            log_.push_back(writer_->summary());
        } catch (const std::exception& error) {
            log_.push_back(std::string("Export cancel failed: ") + error.what());
        }
        writer_.reset();
    }
    return true;
}

bool Exporter::takePicture() {
    ++frameCount_;
    ++counts_.frames;
    if (writer_ == nullptr)
        return false;
    try {
        writer_->addFrame(host_.drawing().picture(width_, height_, supersample_));
    } catch (const std::exception& error) {
        writerFailed(("adding frame " + std::to_string(frameCount_)).c_str(), error);
        return false;
    }
    return true;
}

void Exporter::writerFailed(const char* what, const std::exception& error) {
    log_.push_back(std::string("Export failed while ") + what + ": " + error.what());
    try {
        writer_->cancel();
    } catch (...) {
        // The failure is told already; a second one adds nothing.
    }
    writer_.reset();
}

void Exporter::reset() {
    if (writer_ != nullptr) {
        try {
            writer_->cancel();
        } catch (...) {
            // Reset must always succeed.
        }
        writer_.reset();
    }
    recording_ = false;
    refuseStart_ = false;
    frameCount_ = 0;
    counts_ = Counts();
    width_ = height_ = 0;
    supersample_ = 1;
    factory_ = nullptr;
    log_.clear();
}

}  // namespace vexhost
