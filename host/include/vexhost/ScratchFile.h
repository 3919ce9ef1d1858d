// A new, empty file of its own in the system's temporary directory, removed with the object: for
// what a program hands the host, the add-on or another program only by a file name (a frame
// trace, a key frame file).
#ifndef VEXHOST_SCRATCHFILE_H
#define VEXHOST_SCRATCHFILE_H

#include <string>

namespace vexhost {

class ScratchFile {
public:
    // Named "<prefix>-XXXXXX<suffix>", so a file left by a killed process shows whose it was.
    // std::runtime_error when it cannot be made.
    ScratchFile(const std::string& prefix, const std::string& suffix);
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

}  // namespace vexhost

#endif
