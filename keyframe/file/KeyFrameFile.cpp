#include "file/KeyFrameFile.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <istream>
#include <locale>
#include <stdexcept>
#include <system_error>

#include <boost/format.hpp>

#include "addon/CheckedAt.h"
#include "addon/KeyFrameError.h"
#include "file/FileSection_e.h"
#include "file/FileSystemPath.h"
#include "file/KeyFrameItem_e.h"
#include "file/SettingItem_e.h"
#include "model/TimeAnimationOperation_e.h"

namespace vexplot {
namespace vexutiltools {

namespace {

const char* const MagicWord = "#!KeyFrame";
const int64_t Version = 1;

bool isSpace(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

void strip(std::string& line) {
    const auto last = std::find_if_not(line.rbegin(), line.rend(), isSpace).base();
    line.erase(last, line.end());
    line.erase(line.begin(), std::find_if_not(line.begin(), line.end(), isSpace));
}

// Equal after lowering every character, as the name tables compare names.
bool equalsIgnoringCase(const std::string& a, const std::string& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

// The section a word names, if any. Asked for the first word of every line inside a section, so
// it answers without the exception that the table's getValue raises for the many words that are
// not section names.
bool findSection(const std::string& word, FileSection_e& section) {
    const NameTable<FileSection_e>& sections = NameTable<FileSection_e>::instance();
    for (const FileSection_e candidate : {FileSection_e::Settings, FileSection_e::KeyFrameView}) {
        if (equalsIgnoringCase(word, sections.getName(candidate))) {
            section = candidate;
            return true;
        }
    }
    return false;
}

const std::string& nameOf(SettingItem_e item) {
    return NameTable<SettingItem_e>::instance().getName(item);
}

const std::string& nameOf(KeyFrameItem_e item) {
    return NameTable<KeyFrameItem_e>::instance().getName(item);
}

const std::string& nameOf(FileSection_e section) {
    return NameTable<FileSection_e>::instance().getName(section);
}

}  // namespace

KeyFrameFile::KeyFrameFile() {
    // Numbers and booleans are part of the file format: they must not follow a locale that a
    // host process may have made global.
    item_.imbue(std::locale::classic());
}

KeyFrameFile::~KeyFrameFile() = default;

void KeyFrameFile::write(const std::string& fileName, const AnimationSettings_s& settings,
                         const ListModelKeyFrame& keyFrames) {
    if (keyFrames.getItemCount() == 0)
        throw KeyFrameError(keyFrames.getEmptyListText());
    // Looked up before the file is opened, so that an operation without a name (a broken
    // settings record) leaves no partial file behind.
    const std::string& operation =
        NameTable<TimeAnimationOperation_e>::instance().getName(settings.TimeAnimationOperation);

    std::ofstream out(fileSystemPath(fileName), std::ios::out | std::ios::trunc);
    if (!out.is_open())
        throw KeyFrameError("Unable to open file for writing.");
    out.imbue(std::locale::classic());
    // The floating point format stays the stream's default on purpose: general notation with six
    // significant digits is the file format, and what reading gives back.
    out << std::boolalpha;

    out << MagicWord << ' ' << Version;

    const std::string& settingsSection = nameOf(FileSection_e::Settings);
    out << "\n\n" << settingsSection;
    out << "\n " << nameOf(SettingItem_e::AnimateTime) << ' ' << settings.AnimateTime;
    out << "\n " << nameOf(SettingItem_e::TimeAnimationOperation) << ' ' << operation;
    out << "\n " << nameOf(SettingItem_e::NumCycles) << ' ' << settings.NumCycles;
    out << "\n " << nameOf(SettingItem_e::AnimateStreamtraces) << ' '
        << settings.AnimateStreamtraces;
    out << "\n " << nameOf(SettingItem_e::FadeIn) << ' ' << settings.FadeIn;
    out << "\n " << nameOf(SettingItem_e::FadeOut) << ' ' << settings.FadeOut;
    out << '\n' << settingsSection;

    const std::string& keyFrameSection = nameOf(FileSection_e::KeyFrameView);
    const std::string& name = nameOf(KeyFrameItem_e::Name);
    const std::string& position = nameOf(KeyFrameItem_e::Position);
    const std::string& angle = nameOf(KeyFrameItem_e::Angle);
    const std::string& width = nameOf(KeyFrameItem_e::Width);
    const std::string& frameCount = nameOf(KeyFrameItem_e::FrameCount);
    const std::string& solutionTime = nameOf(KeyFrameItem_e::SolutionTime);
    for (const KeyFrame_s& keyFrame : keyFrames.getItems()) {
        const KeyFrameView_s& view = keyFrame.view;
        out << "\n\n" << keyFrameSection;
        out << "\n " << name << " \"" << keyFrame.name << '"';
        out << "\n " << position << ' ' << view.X << ' ' << view.Y << ' ' << view.Z;
        out << "\n " << angle << ' ' << view.Psi << ' ' << view.Theta << ' ' << view.Alpha;
        out << "\n " << width << ' ' << view.Width;
        out << "\n " << frameCount << ' ' << keyFrame.frameCount;
        out << "\n " << solutionTime << ' ' << keyFrame.solutionTime;
        out << '\n' << keyFrameSection;
    }

    out.close();
    // Not left unsaid: a user who saved must not learn only at the next read that the file is
    // incomplete.
    if (out.fail())
        throw KeyFrameError("Error writing key frame settings file.");
}

void KeyFrameFile::read(const std::string& fileName, AnimationSettings_s& settings,
                        ListModelKeyFrame& keyFrames) {
    lineNumber_ = 0;
    const std::filesystem::path path = fileSystemPath(fileName);
    std::ifstream in(path);
    // A directory opens like a file on this system but has no text to read.
    std::error_code ignored;
    if (!in.is_open() || std::filesystem::is_directory(path, ignored))
        throw KeyFrameError("Unable to open file for reading.");

    std::string line;
    fetchLine(in, line);  // an empty line, when there is none, fails as a header
    {
        std::istringstream header(line);
        header.imbue(std::locale::classic());
        std::string word;
        // Wide, so that a version number too large for a plain integer still reads as newer.
        int64_t version = 0;
        if (!(header >> word >> version) || !equalsIgnoringCase(word, MagicWord))
            throw KeyFrameError("Invalid file header.");
        // Any version up to this one is read, zero and negative numbers included.
        if (version > Version)
            throw KeyFrameError("File created with a newer version of the Key Frame add-on.");
    }

    AnimationSettings_s workingSettings = settings;
    std::vector<KeyFrame_s> workingKeyFrames;
    while (fetchLine(in, line)) {
        FileSection_e section;
        if (!findSection(line, section))
            throwLineError("Unknown section header: " + line);
        if (section == FileSection_e::Settings)
            readSettingsSection(in, workingSettings);
        else
            workingKeyFrames.push_back(readKeyFrameSection(in));
    }
    if (in.bad() || !in.eof())
        throwLineError("Error during file read.");

    // The list first: copying the key frames is the one step that can fail, and it fails before
    // anything has changed. The destination is the caller's own, carried over by the copy.
    keyFrames.setItems(workingKeyFrames);
    settings = workingSettings;
}

bool KeyFrameFile::fetchLine(std::istream& in, std::string& line) {
    while (in.good()) {
        // Only a line that exists counts: the attempt that finds the end of the stream reads no
        // line, so an error at the end names the last physical line, not one past it.
        if (!std::getline(in, line))
            break;
        ++lineNumber_;
        strip(line);
        if (!line.empty())
            return true;
    }
    line.clear();
    return false;
}

std::string KeyFrameFile::firstWord(const std::string& line) {
    item_.clear();
    item_.str(line);
    std::string word;
    item_ >> word;
    return word;
}

void KeyFrameFile::throwLineError(const std::string& text) const {
    std::string message = "Error reading key frame settings file.\n\n" + text;
    if (lineNumber_ > 0)
        message += (boost::format("\n\nError occurred on line number %1%.") % lineNumber_).str();
    throw KeyFrameError(message);
}

void KeyFrameFile::readSettingsSection(std::istream& in, AnimationSettings_s& settings) {
    std::string line;
    for (;;) {
        if (!fetchLine(in, line))
            throwLineError("Missing end marker for Settings section.");
        // Only the first word counts, also for the end marker: text after it is ignored.
        const std::string word = firstWord(line);
        FileSection_e section;
        if (findSection(word, section)) {
            if (section == FileSection_e::Settings)
                return;
            throwLineError("Missing end marker for Settings section.");
        }

        SettingItem_e setting;
        try {
            setting = NameTable<SettingItem_e>::instance().getValue(word);
        } catch (const std::out_of_range&) {
            throwLineError("Unrecognized setting entry.");
        }
        // Anything after the value on the line is ignored.
        switch (setting) {
            case SettingItem_e::AnimateTime:
                settings.AnimateTime = readBoolean(nameOf(setting));
                break;
            case SettingItem_e::TimeAnimationOperation: {
                std::string operation;
                item_ >> operation;
                // Deliberately not a line error: an unknown name leaves as the table's own
                // std::out_of_range "Enumeration out of range.", without heading or line number.
                settings.TimeAnimationOperation =
                    NameTable<TimeAnimationOperation_e>::instance().getValue(operation);
                break;
            }
            case SettingItem_e::NumCycles: {
                int32_t cycles = 0;
                // The text says "greater than 1" while 1 itself is accepted: both kept as they
                // are. A fraction reads as its whole part ("2.5" is 2, the rest is ignored).
                if (!(item_ >> cycles) || cycles < 1)
                    throwLineError("Invalid value for " + nameOf(setting) +
                                   " setting.\nValue must be an integer greater than 1.");
                settings.NumCycles = static_cast<uint64_t>(cycles);
                break;
            }
            case SettingItem_e::AnimateStreamtraces:
                settings.AnimateStreamtraces = readBoolean(nameOf(setting));
                break;
            case SettingItem_e::FadeIn:
                settings.FadeIn = readBoolean(nameOf(setting));
                break;
            case SettingItem_e::FadeOut:
                settings.FadeOut = readBoolean(nameOf(setting));
                break;
        }
    }
}

bool KeyFrameFile::readBoolean(const std::string& itemName) {
    // Alphabetic booleans: exactly "true" and "false", in lower case; digits are refused.
    bool value = false;
    if (!(item_ >> std::boolalpha >> value))
        throwLineError("Invalid value for " + itemName + " setting." +
                       "\nValue must be \"true\" or \"false\".");
    return value;
}

KeyFrame_s KeyFrameFile::readKeyFrameSection(std::istream& in) {
    KeyFrame_s keyFrame{};
    // A section that leaves its FrameCount out gets the smallest frame count there is, not 0: a
    // key frame of 0 frames could neither be animated (its segment would never end) nor written
    // to a file that reads back.
    keyFrame.frameCount = 1;
    std::vector<double> position;
    std::vector<double> angle;
    std::string line;
    for (;;) {
        if (!fetchLine(in, line))
            throwLineError("Missing end marker for KeyFrameView section.");
        const std::string word = firstWord(line);
        FileSection_e section;
        if (findSection(word, section)) {
            if (section == FileSection_e::KeyFrameView)
                break;
            throwLineError("Missing end marker for KeyFrameView section.");
        }

        KeyFrameItem_e item;
        try {
            item = NameTable<KeyFrameItem_e>::instance().getValue(word);
        } catch (const std::out_of_range&) {
            throwLineError("Unrecognized KeyFrameItem entry.");
        }
        switch (item) {
            case KeyFrameItem_e::Name:
                keyFrame.name = readName(line);
                break;
            case KeyFrameItem_e::Position:
                position = readThreeNumbers();
                break;
            case KeyFrameItem_e::Angle:
                angle = readThreeNumbers();
                break;
            case KeyFrameItem_e::Width: {
                double width = 0.0;
                if (!(item_ >> width))
                    throwLineError("Unable to read width value.");
                if (width > 1e150 || width < -1e150)
                    throwLineError("Invalid width value. Width must be between -1e150 and 1e150");
                keyFrame.view.Width = width;
                break;
            }
            case KeyFrameItem_e::FrameCount: {
                uint64_t frameCount = 0;
                // A minus sign is refused rather than wrapped round into a count of billions of
                // frames, as the stream would read "-1" into an unsigned number. The failure text
                // is deliberately the width's.
                item_ >> std::ws;
                if (item_.peek() == '-' || !(item_ >> frameCount))
                    throwLineError("Unable to read width value.");
                if (frameCount == 0)
                    throwLineError("Invalid frameCount value.");
                keyFrame.frameCount = frameCount;
                break;
            }
            case KeyFrameItem_e::SolutionTime: {
                double solutionTime = 0.0;
                if (!(item_ >> solutionTime))
                    throwLineError("Unable to read solution time value.");
                keyFrame.solutionTime = solutionTime;
                break;
            }
        }
    }

    // A section without a Position or an Angle line has fewer than three numbers to take: the
    // positional access fails with std::out_of_range "invalid vector subscript", deliberately
    // without heading or line number.
    keyFrame.view.X = checkedAt(position, 0);
    keyFrame.view.Y = checkedAt(position, 1);
    keyFrame.view.Z = checkedAt(position, 2);
    keyFrame.view.Psi = checkedAt(angle, 0);
    keyFrame.view.Theta = checkedAt(angle, 1);
    keyFrame.view.Alpha = checkedAt(angle, 2);
    return keyFrame;
}

std::vector<double> KeyFrameFile::readThreeNumbers() {
    const std::size_t expected = 3;
    std::vector<double> values;
    for (;;) {
        item_ >> std::ws;
        if (item_.eof())
            break;  // the end of the line
        const std::streampos tokenStart = item_.tellg();
        double value = 0.0;
        if (item_ >> value) {
            values.push_back(value);
            continue;
        }
        // A token that is not a number stopped the reading: it is read back from its start to be
        // named (a number too large for a double is consumed by the failed read, and would
        // otherwise leave the next token to be named in its place).
        item_.clear();
        item_.seekg(tokenStart);
        std::string token;
        item_ >> token;
        throwLineError(
            "Error reading item from file.\nUnable to convert input to appropriate "
            "value: " +
            token);
    }
    if (values.size() != expected)
        throwLineError((boost::format("Mismatch between number of expected values and number of "
                                      "values that could be read.\nNumber of expected values: "
                                      "%1%\nNumber of values read: %2%") %
                        expected % values.size())
                           .str());
    return values;
}

std::string KeyFrameFile::readName(const std::string& line) const {
    // The name runs from the first quotation mark of the line to the next one; blanks inside are
    // kept and anything after the closing mark is ignored, so a name cannot hold a quotation mark.
    const std::string::size_type opening = line.find('"');
    const std::string::size_type closing =
        opening == std::string::npos ? std::string::npos : line.find('"', opening + 1);
    if (closing == std::string::npos)
        throwLineError("View name must be surrounded in quotation marks.");
    if (closing == opening + 1)
        throwLineError("Unable to read view name.");
    return line.substr(opening + 1, closing - opening - 1);
}

}  // namespace vexutiltools
}  // namespace vexplot
