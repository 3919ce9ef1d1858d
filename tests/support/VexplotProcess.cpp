#include "support/VexplotProcess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace vextest {

namespace {

std::string slurp(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

}  // namespace

std::string VexplotProcess::writeFile(const std::string& name, const std::string& content) const {
    const std::string path = directory_ + "/" + name;
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

std::string VexplotProcess::readFile(const std::string& name) const {
    return slurp(directory_ + "/" + name);
}

bool VexplotProcess::exists(const std::string& name) const {
    return std::filesystem::exists(directory_ + "/" + name);
}

std::vector<std::string> VexplotProcess::files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory_)) {
        const std::string name = entry.path().filename().string();
        if (name != ".stdout" && name != ".stderr")
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string VexplotProcess::vexplotPath() {
    return VEXPLOT_PATH;
}

VexplotProcess::Result VexplotProcess::run(const std::vector<std::string>& arguments,
                                           const std::string& workingDirectory) const {
    return runProgram(VEXPLOT_PATH, arguments, workingDirectory);
}

VexplotProcess::Result VexplotProcess::runProgram(const std::string& program,
                                                  const std::vector<std::string>& arguments,
                                                  const std::string& workingDirectory) const {
    const std::string& cwd = workingDirectory.empty() ? directory_ : workingDirectory;
    const std::string outPath = directory_ + "/.stdout";
    const std::string errPath = directory_ + "/.stderr";
    std::vector<std::string> argv = {program};
    argv.insert(argv.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& argument : argv)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    const pid_t child = fork();
    if (child < 0)
        throw std::runtime_error("VexplotProcess: fork failed");
    if (child == 0) {
        // In the child only async-signal-safe calls until exec.
        const int out = open(outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int err = open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int in = open("/dev/null", O_RDONLY);
        if (out < 0 || err < 0 || in < 0 || chdir(cwd.c_str()) != 0)
            _exit(127);
        dup2(in, 0);
        dup2(out, 1);
        dup2(err, 2);
        execv(pointers[0], pointers.data());
        _exit(127);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    Result result;
    result.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.out = slurp(outPath);
    result.err = slurp(errPath);
    std::filesystem::remove(outPath);
    std::filesystem::remove(errPath);
    return result;
}

VexplotProcess::Result VexplotProcess::runMacro(const std::string& macro,
                                                std::vector<std::string> options) const {
    writeFile("m.mcr", macro);
    options.push_back("m.mcr");
    return run(options);
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line))
        lines.push_back(line);
    return lines;
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace vextest
