#ifndef VEXUTILTOOLS_KEYFRAMEFILE_H
#define VEXUTILTOOLS_KEYFRAMEFILE_H

#include <cstdint>
#include <iosfwd>
#include <sstream>
#include <string>
#include <vector>

#include "model/AnimationSettings_s.h"
#include "model/KeyFrame_s.h"
#include "model/ListModelKeyFrame.h"

namespace vexplot {
namespace vexutiltools {

// Writes and reads key frame settings files: the animation settings and the key frame list as
// line-oriented text. Create one on the stack for one read or one write.
//
// The file, as written (line feeds only, none after the last line; numbers in general notation
// with six significant digits, so a view read back is rounded to six digits; booleans as "true"
// and "false"):
//   #!KeyFrame 1
//   <blank line>
//   %Settings
//    AnimateTime false                 (each item line starts with one blank)
//    TimeAnimationOperation Forward
//    NumCycles 1
//    AnimateStreamtraces false
//    FadeIn false
//    FadeOut true
//   %Settings                          (a section ends with its own name repeated)
//   <blank line>
//   %KeyFrameView                      (one section per key frame, in list order)
//    Name "Front view"
//    Position 1.5 -20 3.25
//    Angle 30 45 0
//    Width 12.3457
//    FrameCount 20
//    SolutionTime 0
//   %KeyFrameView
// The destination of the settings is not stored.
//
// Reading is all-or-nothing: the caller's settings and list change only once the whole file has
// been read without error. Section, item and operation names are recognised in any case; blank
// lines are skipped anywhere; items come in any order; an item given twice takes its last value;
// items a file leaves out keep their values (settings) or stay value-initialised (key frames: an
// empty name and zeros), but for a key frame's frame count, which is then 1.
//
// Failures are exceptions. File names are UTF-8 text.
class KeyFrameFile {
public:
    KeyFrameFile();
    virtual ~KeyFrameFile();

    KeyFrameFile(const KeyFrameFile&) = delete;
    KeyFrameFile& operator=(const KeyFrameFile&) = delete;

    // Writes the settings (all but the destination) and every key frame of the list. Throws
    // KeyFrameError:
    //   the list's empty-list text ("No Key Frames established.")  the list is empty; no file is
    //                                                              created or touched
    //   "Unable to open file for writing."
    //   "Error writing key frame settings file."   the system refused the text after the file was
    //                                              opened (a disk full); the file may be partly
    //                                              written
    void write(const std::string& fileName, const AnimationSettings_s& settings,
               const ListModelKeyFrame& keyFrames);

    // Replaces the settings (all but the destination, which is kept) by those of the file,
    // keeping the ones the file does not name, and the list's items by the key frames of the file
    // in file order (one reset to the list's observers). On failure both are untouched.
    //
    // Throws KeyFrameError with the bare texts "Unable to open file for reading." (also for a
    // directory), "Invalid file header." and "File created with a newer version of the Key Frame
    // add-on."; every other KeyFrameError carries the heading "Error reading key frame settings
    // file.\n\n", the specific text and "\n\nError occurred on line number N." with the number of
    // the physical line (blank ones counted, from 1) where reading stopped. Two failures are
    // std::out_of_range instead, with no heading and no line number: an unknown time animation
    // operation name ("Enumeration out of range.") and a key frame section without a Position or
    // an Angle line ("invalid vector subscript").
    void read(const std::string& fileName, AnimationSettings_s& settings,
              ListModelKeyFrame& keyFrames);

    // The physical line last read: 0 before reading, counted afresh by each read.
    uint64_t getLineNumber() const { return lineNumber_; }

private:
    // Skips blank and white-space-only lines; true with the next line stripped of leading and
    // trailing white space, false when the stream ends or fails first.
    bool fetchLine(std::istream& in, std::string& line);
    // Points the item stream at the line and reads its first word.
    std::string firstWord(const std::string& line);
    [[noreturn]] void throwLineError(const std::string& text) const;

    void readSettingsSection(std::istream& in, AnimationSettings_s& settings);
    KeyFrame_s readKeyFrameSection(std::istream& in);
    bool readBoolean(const std::string& itemName);
    std::vector<double> readThreeNumbers();
    std::string readName(const std::string& line) const;

    uint64_t lineNumber_ = 0;
    // The line being parsed, one stream reused for every line so reading a large file does not
    // construct a stream per line.
    std::istringstream item_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
