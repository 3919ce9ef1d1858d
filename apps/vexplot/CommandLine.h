// vexplot's command line: `vexplot [options] [MACRO_FILE ...]`.
//
// Options take their value as the next argument or after '=' (--trace=out.jsonl). "--" ends the
// options: every later argument is a macro file. Options that are not repeatable keep the last
// value given; --answer and --file-name queue each value in order.
#ifndef VEXPLOT_APP_COMMANDLINE_H
#define VEXPLOT_APP_COMMANDLINE_H

#include <string>
#include <vector>

#include "RunOptions.h"

namespace vexplot {
namespace app {

class CommandLine {
public:
    // The arguments after the program name. UsageError naming the option or value otherwise.
    static RunOptions parse(const std::vector<std::string>& arguments);
    // The --help text.
    static const char* usage();
};

}  // namespace app
}  // namespace vexplot

#endif
