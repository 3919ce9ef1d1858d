// Runs the built vexplot as a user does, in a scratch directory of its own, and keeps what it
// printed and how it exited. The scratch directory goes when the object goes.
#ifndef VEXTEST_VEXPLOTPROCESS_H
#define VEXTEST_VEXPLOTPROCESS_H

#include <string>
#include <vector>

#include "support/TemporaryDirectory.h"

namespace vextest {

class VexplotProcess {
public:
    struct Result {
        int exitStatus = -1;  // -1 when the program did not exit normally (a crash)
        std::string out;
        std::string err;
    };

    // The scratch directory, the program's working directory.
    const std::string& directory() const { return directory_; }
    // Writes a file in the scratch directory; returns its path.
    std::string writeFile(const std::string& name, const std::string& content) const;
    // The content of a file of the scratch directory ("" when there is none).
    std::string readFile(const std::string& name) const;
    bool exists(const std::string& name) const;
    // The names of the files in the scratch directory, sorted, without the program's captured
    // output.
    std::vector<std::string> files() const;

    // Runs vexplot with these arguments (not the program name) and waits for it; in the scratch
    // directory unless another working directory is given.
    Result run(const std::vector<std::string>& arguments,
               const std::string& workingDirectory = "") const;
    // Runs another built program the same way, in the same scratch directory: the programs that
    // make files for vexplot to run (vexpath), or start it (mpirun).
    Result runProgram(const std::string& program, const std::vector<std::string>& arguments,
                      const std::string& workingDirectory = "") const;
    // The built vexplot.
    static std::string vexplotPath();
    // Writes the macro as m.mcr and runs vexplot with the options and m.mcr.
    Result runMacro(const std::string& macro, std::vector<std::string> options = {}) const;

private:
    TemporaryDirectory scratch_{"vexplot-test"};
    std::string directory_ = scratch_.path().string();
};

// The lines of a text, without their line feeds.
std::vector<std::string> linesOf(const std::string& text);
// Whether the text (what vexplot printed, a file it wrote) holds the part.
bool contains(const std::string& text, const std::string& part);

}  // namespace vextest

#endif
