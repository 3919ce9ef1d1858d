#include "ui/FileNameChooser.h"

#include <fstream>

#include <boost/format.hpp>

#include "addon/HostString.h"
#include "addon/LockScope.h"
#include "file/FileSystemPath.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

FileNameChooser::FileNameChooser(const std::string& fileName, const std::string& defaultExtension,
                                 const std::string& fileTypeName)
    : fileName_(applyDefaultExtension(fileName, defaultExtension)),
      defaultExtension_(defaultExtension),
      fileTypeName_(fileTypeName) {}

FileNameChooser::~FileNameChooser() = default;

bool FileNameChooser::chooseFileName(VexSelectFileOption_e mode) {
    const std::string filter = "*." + defaultExtension_;
    LockScope lock;

    std::string fileName;
    {
        HostString chosenName;
        if (!VexUtilDialogGetFileName(mode, chosenName.receive(), fileTypeName_.c_str(),
                                      fileName_.c_str(), filter.c_str()))
            return false;
        fileName = chosenName.str();
    }  // the host string is freed here, as soon as it is copied

    const bool hasDefaultExtension = checkDefaultExtension(fileName);
    bool accepted = true;
    // Kept on purpose: a user who has just answered Yes to keep another extension is not asked
    // about overwriting as well; the name is taken as typed, existing file or not.
    if (hasDefaultExtension && mode == VexSelectFile_WriteFile)
        accepted = checkOverwrite(fileName);

    if (accepted) {
        fileName_ = fileName;
        chosen_ = true;
    }
    return accepted;
}

void FileNameChooser::setFileName(const std::string& fileName) {
    fileName_ = fileName;
}

std::string FileNameChooser::applyDefaultExtension(const std::string& fileName,
                                                   const std::string& defaultExtension) {
    const std::string::size_type dot = fileName.rfind('.');
    if (dot == std::string::npos)
        return fileName + "." + defaultExtension;
    return fileName.substr(0, dot + 1) + defaultExtension;
}

bool FileNameChooser::checkDefaultExtension(std::string& fileName) const {
    const std::string::size_type dot = fileName.rfind('.');
    if (dot == std::string::npos) {
        fileName = applyDefaultExtension(fileName, defaultExtension_);
        return true;
    }
    // Case-sensitive on purpose: "name.KEYFRAME" is another extension, and the user is asked.
    if (fileName.compare(dot + 1, std::string::npos, defaultExtension_) == 0)
        return true;

    const std::string question =
        (boost::format("You have specified an extension other than the default file extension\n"
                       "Are you sure you want to save the file as %1%\n"
                       "Click \"No\" to restore the default file extension.") %
         fileName)
            .str();
    bool keepTyped;
    {
        LockScope lock;
        keepTyped = VexUtilDialogMessageBox(question.c_str(), VexMessageBox_YesNo);
    }
    if (keepTyped)
        return false;
    fileName = applyDefaultExtension(fileName, defaultExtension_);
    return true;
}

bool FileNameChooser::checkOverwrite(const std::string& fileName) const {
    if (!std::ifstream(fileSystemPath(fileName)).is_open())
        return true;
    const std::string question =
        (boost::format("The file: %1% exists.\nAre you sure you want to overwrite it?") % fileName)
            .str();
    LockScope lock;
    return VexUtilDialogMessageBox(question.c_str(), VexMessageBox_YesNo);
}

}  // namespace vexutiltools
}  // namespace vexplot
