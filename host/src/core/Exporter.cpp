#include "vexhost/Exporter.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <stdexcept>
#include <variant>

#include "core/ExportSetupAttribute.h"
#include "core/NullMovieWriter.h"
#include "vexhost/Drawing.h"
#include "vexhost/FrameStack.h"
#include "vexhost/FrameTrace.h"
#include "vexhost/Host.h"
#include "vexhost/HostErrors.h"
#include "vexhost/MovieWriterFactory.h"
#include "vexhost/StyleStore.h"
#include "vexhost/UserDialogs.h"

namespace vexhost {

namespace {

// Reads one export setup value into its field of ExportSettings.
void readInto(const StyleStore& style, const StyleStore::Path& path, int& field) {
    field = static_cast<int>(style.getInt(path));
}
void readInto(const StyleStore& style, const StyleStore::Path& path, double& field) {
    field = style.getDouble(path);
}
void readInto(const StyleStore& style, const StyleStore::Path& path, bool& field) {
    field = style.getBool(path);
}
void readInto(const StyleStore& style, const StyleStore::Path& path, std::string& field) {
    field = style.getString(path);
}

}  // namespace

Exporter::Exporter(StyleStore& style, FrameStack& frames, Drawing& drawing, HostErrors& errors,
                   UserDialogs& dialogs, FrameTrace& trace)
    : style_(style),
      frames_(frames),
      drawing_(drawing),
      errors_(errors),
      dialogs_(dialogs),
      trace_(trace) {}

Exporter::~Exporter() {
    abandonWriter();
}

ExportSettings Exporter::settings() const {
    ExportSettings s;
    for (const ExportSetupAttribute& attribute : ExportSetupAttribute::all()) {
        const StyleStore::Path path = attribute.path();
        std::visit([&](auto field) { readInto(style_, path, s.*field); }, attribute.field);
    }
    return s;
}

std::pair<int, int> Exporter::imageSize() const {
    const double ppi = FrameStack::PixelsPerInch;
    int64_t regionWidth = frames_.workAreaWidth(), regionHeight = frames_.workAreaHeight();
    const ExportSettings s = settings();
    if (s.region == VexExportRegion_CurrentFrame && frames_.active() != nullptr) {
        const std::pair<int, int> size = Drawing::pixelSize(*frames_.active());
        regionWidth = size.first;
        regionHeight = size.second;
    } else if (s.region == VexExportRegion_AllFrames && !frames_.empty()) {
        double left = frames_.at(0).x(), top = frames_.at(0).y();
        double right = left + frames_.at(0).width(), bottom = top + frames_.at(0).height();
        for (int i = 1; i < frames_.count(); ++i) {
            const Frame& f = frames_.at(static_cast<std::size_t>(i));
            left = std::min(left, f.x());
            top = std::min(top, f.y());
            right = std::max(right, f.x() + f.width());
            bottom = std::max(bottom, f.y() + f.height());
        }
        // Rounded, as the frames' own sizes are (Drawing::pixelSize).
        regionWidth = std::llround((right - left) * ppi);
        regionHeight = std::llround((bottom - top) * ppi);
    }
    regionWidth = std::max<int64_t>(regionWidth, 1);
    regionHeight = std::max<int64_t>(regionHeight, 1);
    // The picture keeps the region's shape at the chosen width (multiplication first, as whole
    // pixels). Codecs that take even sizes only get the nearest even height instead: padding the
    // picture with a repeated row would put a seam at its edge. The width stays as the user chose
    // it; an odd one is padded by the writer.
    if (takesEvenSizesOnly(s.format)) {
        const int64_t halfHeight = (s.imageWidth * regionHeight + regionWidth) / (2 * regionWidth);
        return {s.imageWidth, static_cast<int>(std::max<int64_t>(2 * halfHeight, 2))};
    }
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
    const ExportSetupAttribute* found = ExportSetupAttribute::find(attribute);
    if (found == nullptr)
        return VexSetValue_InvalidCommandOption;
    const StyleStore::Path path = found->path();
    switch (found->type()) {
        case StyleStore::ValueType::Int:
            return style_.setInt(path, static_cast<int64_t>(intValue));
        case StyleStore::ValueType::Double:
            return style_.setDouble(path, doubleValue);
        case StyleStore::ValueType::Bool:
            if (intValue != 0 && intValue != 1)
                return VexSetValue_InvalidValue;
            return style_.setBool(path, intValue != 0);
        case StyleStore::ValueType::String: {
            const char* name = reinterpret_cast<const char*>(intValue);
            if (name == nullptr)
                return VexSetValue_InvalidValue;
            return style_.setString(path, name);
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
    if (frames_.active() == nullptr) {
        errors_.record("VexUtilExportStart", "there is no frame to export");
        return false;
    }
    const ExportSettings s = settings();
    const std::pair<int, int> size = imageSize();
    width_ = size.first;
    height_ = size.second;
    supersample_ = s.useSuperSampling ? s.superSampleFactor : 1;
    // The start takes the first frame: a movie that cannot be opened or a first picture that cannot
    // be drawn or encoded refuses the start, with an error dialog that names the cause, as the
    // application tells the user why an export did not begin.
    try {
        writer_ = factory_ ? factory_(s) : std::make_unique<NullMovieWriter>();
        if (writer_ == nullptr)
            throw std::runtime_error("There is no movie writer for the export format " +
                                     std::to_string(s.format));
        writer_->open(s, width_, height_);
        addPicture();
    } catch (const std::exception& error) {
        abandonWriter();
        dialogs_.showError(error.what());
        log_.push_back("Export not started: the error shown says why.");
        return false;
    }
    recording_ = true;
    frameCount_ = 1;
    ++counts_.frames;
    ++counts_.starts;
    log_.push_back("Export started: format " + std::to_string(s.format) + ", " +
                   std::to_string(width_) + " x " + std::to_string(height_) + " pixels, to \"" +
                   s.fileName + "\".");
    trace_.writeEvent("export-start");
    return true;
}

bool Exporter::nextFrame() {
    if (!recording_) {
        errors_.record("VexUtilExportNextFrame", "no export is being recorded");
        return false;
    }
    trace_.writeEvent("export-frame");
    return takePicture();
}

bool Exporter::finish() {
    if (!recording_) {
        errors_.record("VexUtilExportFinish", "no export is being recorded");
        return false;
    }
    trace_.writeEvent("export-finish");
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
        errors_.record("VexUtilExportCancel", "no export is being recorded");
        return false;
    }
    trace_.writeEvent("export-cancel");
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

void Exporter::addPicture() {
    writer_->addFrame(drawing_.picture(width_, height_, supersample_));
}

bool Exporter::takePicture() {
    // A frame counts also when the writer failed earlier: the run took it.
    ++frameCount_;
    ++counts_.frames;
    if (writer_ == nullptr)
        return false;
    try {
        addPicture();
    } catch (const std::exception& error) {
        writerFailed(("adding frame " + std::to_string(frameCount_)).c_str(), error);
        return false;
    }
    return true;
}

void Exporter::writerFailed(const char* what, const std::exception& error) {
    // Told once, when it happens: the rest of the run goes on without a movie, and finishing says
    // that none was written.
    dialogs_.showError(error.what());
    log_.push_back(std::string("Export failed while ") + what + ": " + error.what());
    abandonWriter();
}

void Exporter::abandonWriter() {
    if (writer_ == nullptr)
        return;
    try {
        writer_->cancel();
    } catch (...) {
        // The failure is told already; a second one adds nothing.
    }
    writer_.reset();
}

void Exporter::reset() {
    abandonWriter();
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
