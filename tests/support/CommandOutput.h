// Command-line tools run through the shell, for tests that look at built files or written movies
// with the system's own tools (nm, readelf, ffprobe).
#ifndef VEXTEST_COMMANDOUTPUT_H
#define VEXTEST_COMMANDOUTPUT_H

#include <string>
#include <vector>

namespace vextest {

// The text in single quotes, as the shell reads it back unchanged.
std::string shellQuoted(const std::string& text);

// The lines the command writes to its standard output, without their line ends. A command that
// cannot be started or exits with a failing status is a test failure naming it and its output.
std::vector<std::string> commandOutputLines(const std::string& command);

}  // namespace vextest

#endif
