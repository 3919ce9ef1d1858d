#ifndef VEXUTILTOOLS_FILENAMECHOOSER_H
#define VEXUTILTOOLS_FILENAMECHOOSER_H

#include <string>

#include "vxappaddonuiaction.h"

namespace vexplot {
namespace vexutiltools {

// Asks the user for a file name through the host's file dialog and keeps the last accepted name,
// so the next dialog starts from it. One chooser per use site (the main dialog owns the one for
// settings files).
//
// Beyond the host dialog the chooser makes two checks of its own:
// - the default extension: a name without extension gets ".<default extension>"; a name with
//   another extension (compared case-sensitively) makes the chooser ask whether to keep it;
// - for save dialogs (VexSelectFile_WriteFile) the overwrite question when the file exists,
//   skipped on purpose when the user has just insisted on another extension.
// The host lock is held for the whole of chooseFileName and for each question. File names are
// UTF-8 text. No failure is raised: a cancel or a refusing answer is a false result.
class FileNameChooser {
public:
    // The default extension (without the dot) is applied to the starting name at once, so the
    // first dialog already offers it ("animation" becomes "animation.keyframe").
    FileNameChooser(const std::string& fileName, const std::string& defaultExtension,
                    const std::string& fileTypeName);
    virtual ~FileNameChooser();

    FileNameChooser(const FileNameChooser&) = delete;
    FileNameChooser& operator=(const FileNameChooser&) = delete;

    // Shows the host file dialog in the given mode, starting from the current file name, with the
    // filter "*.<default extension>", then makes the checks above. True when a name was accepted:
    // it is then the current file name and the chooser counts as chosen. False when the user
    // canceled the dialog or refused the overwrite; the current name is then unchanged.
    bool chooseFileName(VexSelectFileOption_e mode);

    // Sets the current file name as it stands (no extension rule): after a settings file was
    // opened or saved, the next dialog starts from that file.
    void setFileName(const std::string& fileName);

    const std::string& getFileName() const { return fileName_; }
    // Whether a name has been accepted through the dialog at least once.
    bool isChosen() const { return chosen_; }
    const std::string& getDefaultExtension() const { return defaultExtension_; }
    const std::string& getFileTypeName() const { return fileTypeName_; }

    // The name with its extension replaced by the default one: everything after the last "." of
    // the name is cut (the whole text is searched, so a dot in a folder name counts when the file
    // name has none) and the default extension appended; without a "." the name gets "." and the
    // default extension.
    static std::string applyDefaultExtension(const std::string& fileName,
                                             const std::string& defaultExtension);

private:
    // Makes the name carry an extension. True when the name now has the default extension (added
    // or already there, or restored after a No); false when the user chose Yes to keep another
    // extension, the name then stays as typed.
    bool checkDefaultExtension(std::string& fileName) const;
    // True when the name may be written: no such file can be opened, or the user answered Yes.
    bool checkOverwrite(const std::string& fileName) const;

    bool chosen_ = false;
    std::string fileName_;
    std::string defaultExtension_;
    std::string fileTypeName_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
