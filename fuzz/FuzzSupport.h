// What the fuzz targets share: a scratch directory that every file name of an input lands in, and
// the check that ends the run, loudly, when a rule is broken.
#ifndef VEXFUZZ_FUZZSUPPORT_H
#define VEXFUZZ_FUZZSUPPORT_H

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <system_error>
#include <vector>

#include "support/TemporaryDirectory.h"

namespace vexfuzz {

// Ends the run with the broken rule on stderr: libFuzzer reports the input as a crash.
[[noreturn]] inline void broken(const std::string& rule) {
    std::fprintf(stderr, "broken rule: %s\n", rule.c_str());
    std::abort();
}

inline void expect(bool kept, const std::string& rule) {
    if (!kept)
        broken(rule);
}

// A fresh directory (vextest::TemporaryDirectory), made the working directory for the whole run
// and removed with everything in it at exit. Inputs whose file names could leave it (a '/') are not
// run, so nothing an input names lies outside it. Made by enterScratchDirectory, from
// LLVMFuzzerInitialize.
class ScratchDirectory {
public:
    ScratchDirectory() { std::filesystem::current_path(directory_.path()); }
    // Leaves the directory before it goes.
    ~ScratchDirectory() {
        std::error_code ignored;
        std::filesystem::current_path(std::filesystem::temp_directory_path(), ignored);
    }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    const std::filesystem::path& path() const { return directory_.path(); }

    // Removes everything but the files named.
    void keepOnly(std::initializer_list<const char*> names) const {
        std::error_code ignored;
        for (const auto& entry : std::filesystem::directory_iterator(path(), ignored)) {
            bool keep = false;
            for (const char* name : names)
                keep = keep || entry.path().filename() == name;
            if (!keep)
                std::filesystem::remove_all(entry.path(), ignored);
        }
    }

private:
    vextest::TemporaryDirectory directory_{"vexfuzz"};
};

// The scratch directory of the run.
inline const ScratchDirectory& scratchDirectory() {
    static const ScratchDirectory directory;
    return directory;
}

// For LLVMFuzzerInitialize, which libFuzzer calls before it reads its arguments: makes the paths
// among them absolute (corpus directories and files, and the values of the flags that name
// paths), then enters the scratch directory, so that a relative path given on the command line
// still means what it meant where the fuzzer was started.
inline void enterScratchDirectory(int* argc, char*** argv) {
    static std::vector<std::string> arguments;
    static std::vector<char*> pointers;
    const char* const pathFlags[] = {
        "-artifact_prefix=",    "-exact_artifact_path=", "-dict=",
        "-merge_control_file=", "-features_dir=",        "-seed_inputs="};
    const std::filesystem::path start = std::filesystem::current_path();
    for (int i = 0; i < *argc; ++i) {
        std::string argument = (*argv)[i];
        if (i > 0 && !argument.empty() && argument[0] != '-') {
            argument = (start / argument).string();
        } else {
            for (const char* flag : pathFlags) {
                const std::string prefix = flag;
                if (argument.compare(0, prefix.size(), prefix) == 0 &&
                    argument.size() > prefix.size() && argument[prefix.size()] != '/')
                    argument = prefix + (start / argument.substr(prefix.size())).string();
            }
        }
        arguments.push_back(argument);
    }
    // libFuzzer writes what it finds to the working directory unless told otherwise: keep that
    // the directory it was started in, not the scratch directory that goes at exit.
    bool hasArtifactPrefix = false;
    for (const std::string& argument : arguments)
        hasArtifactPrefix = hasArtifactPrefix || argument.rfind("-artifact_prefix=", 0) == 0;
    if (!hasArtifactPrefix)
        arguments.push_back("-artifact_prefix=" + start.string() + "/");
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    *argc = static_cast<int>(arguments.size());
    *argv = pointers.data();
    scratchDirectory();
}

}  // namespace vexfuzz

#endif
