// fuzz_settings_file: any bytes as a key frame settings file, read with KeyFrameFile::read.
//
// Rules: reading fails only with KeyFrameError or std::out_of_range (the two failures the reader
// documents), and then leaves the caller's settings and list exactly as they were; a read that
// works keeps the destination, and what it read is written and read back to the same list and
// settings (numbers to the six significant digits the file keeps). The one exception to the last
// rule is kept on purpose by the reader: a key frame section that leaves out its Name reads as an
// empty name, which the writer writes and the reader then refuses; such lists are not written
// back.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "addon/KeyFrameError.h"
#include "file/KeyFrameFile.h"
#include "model/ListModelKeyFrame.h"
#include "support/KeyFrameData.h"

using namespace vexplot::vexutiltools;

namespace {

bool close(double written, double read) {
    return written == read || std::fabs(written - read) <= 1e-5 * std::fabs(written);
}

void expectSameAsRead(const std::vector<KeyFrame_s>& read, const std::vector<KeyFrame_s>& again) {
    vexfuzz::expect(read.size() == again.size(), "a written list reads back to another length");
    for (std::size_t i = 0; i < read.size(); ++i) {
        const KeyFrame_s& a = read[i];
        const KeyFrame_s& b = again[i];
        vexfuzz::expect(a.name == b.name && a.frameCount == b.frameCount,
                        "a written key frame reads back with another name or frame count");
        const double first[] = {a.view.X,     a.view.Y,     a.view.Z,     a.view.Psi,
                                a.view.Theta, a.view.Alpha, a.view.Width, a.solutionTime};
        const double second[] = {b.view.X,     b.view.Y,     b.view.Z,     b.view.Psi,
                                 b.view.Theta, b.view.Alpha, b.view.Width, b.solutionTime};
        for (int n = 0; n < 8; ++n)
            vexfuzz::expect(close(first[n], second[n]), "a written number reads back otherwise");
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    vexfuzz::enterScratchDirectory(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    const std::string fileName = "input.keyframe";
    {
        std::ofstream out(fileName, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }

    AnimationSettings_s settings = vextest::settingsUnlikeAnyDefault();
    ListModelKeyFrame keyFrames;
    keyFrames.setItems(vextest::keyFramesUnlikeAnyDefault());
    bool read = false;
    try {
        KeyFrameFile().read(fileName, settings, keyFrames);
        read = true;
    } catch (const KeyFrameError&) {
    } catch (const std::out_of_range&) {
    }
    if (!read) {
        vexfuzz::expect(settings == vextest::settingsUnlikeAnyDefault() &&
                            keyFrames.getItems() == vextest::keyFramesUnlikeAnyDefault(),
                        "a failed read changed the caller's settings or list");
        return 0;
    }
    vexfuzz::expect(settings.Destination == Destination_e::ToFile,
                    "a read changed the destination");
    if (keyFrames.getItemCount() == 0)
        return 0;  // nothing to write: an empty list is refused on writing
    for (const KeyFrame_s& keyFrame : keyFrames.getItems()) {
        vexfuzz::expect(keyFrame.frameCount > 0, "a key frame was read with a frame count of 0");
        if (keyFrame.name.empty())
            return 0;
    }

    KeyFrameFile().write("again.keyframe", settings, keyFrames);
    AnimationSettings_s settingsAgain = vextest::settingsUnlikeAnyDefault();
    ListModelKeyFrame keyFramesAgain;
    KeyFrameFile().read("again.keyframe", settingsAgain, keyFramesAgain);
    vexfuzz::expect(settingsAgain == settings, "written settings read back otherwise");
    expectSameAsRead(keyFrames.getItems(), keyFramesAgain.getItems());
    return 0;
}
