// Each SDK library holds the host's implementation of exactly what its SDK header declares: every
// function the header declares is exported by that library, and the library exports nothing else.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "common_strutil.h"
#include "support/CommandOutput.h"
#include "vexgui.h"
#include "vxappaddonuiaction.h"
#include "vxsdkbase.h"

namespace {

// The functions the SDK header declares (VEXSDK_API), by their unqualified names.
std::set<std::string> declaredFunctions(const std::string& header) {
    const char* sourceDir = std::getenv("VEX_TEST_SOURCE_DIR");
    EXPECT_NE(nullptr, sourceDir);
    std::ifstream in(std::string(sourceDir != nullptr ? sourceDir : ".") + "/sdk/include/" +
                     header);
    EXPECT_TRUE(in.good()) << header;
    std::string text;
    for (std::string line; std::getline(in, line);) {
        if (line.rfind('#', 0) != 0)  // the macro's own definition is not a declaration
            text += line + "\n";
    }
    std::set<std::string> names;
    const std::regex declaration(R"(VEXSDK_API\s+[\w\s\*:]*?(\w+)\s*\()");
    for (std::sregex_iterator it(text.begin(), text.end(), declaration), end; it != end; ++it)
        names.insert((*it)[1]);
    return names;
}

// The functions the shared library holding the symbol exports, by their unqualified names.
std::set<std::string> exportedFunctions(const void* symbol) {
    Dl_info info{};
    EXPECT_NE(0, dladdr(symbol, &info));
    std::set<std::string> names;
    for (const std::string& line : vextest::commandOutputLines(
             "nm -DC --defined-only " + vextest::shellQuoted(info.dli_fname))) {
        // "0000000000001250 T vexplot::utf8ToWideString(std::...)"
        std::istringstream fields(line);
        std::string address, type, name;
        if (!(fields >> address >> type) || (type != "T" && type != "W"))
            continue;
        std::getline(fields >> std::ws, name);
        name = name.substr(0, name.find('('));
        names.insert(name.substr(name.rfind(':') == std::string::npos ? 0 : name.rfind(':') + 1));
    }
    return names;
}

struct SdkLibrary {
    const char* header;
    const void* oneOfItsFunctions;
};

const SdkLibrary SdkLibraries[] = {
    {"vxsdkbase.h", reinterpret_cast<const void*>(&VexUtilLockOn)},
    {"vexgui.h", reinterpret_cast<const void*>(&VexGUIDialogLaunch)},
    {"vxappaddonuiaction.h", reinterpret_cast<const void*>(&VexUtilHelp)},
    {"common_strutil.h", reinterpret_cast<const void*>(&vexplot::utf8ToWideString)},
};

TEST(SdkLibrariesTest, EachLibraryExportsExactlyTheFunctionsOfItsHeader) {
    for (const SdkLibrary& library : SdkLibraries) {
        const std::set<std::string> declared = declaredFunctions(library.header);
        EXPECT_FALSE(declared.empty()) << library.header;
        EXPECT_EQ(declared, exportedFunctions(library.oneOfItsFunctions)) << library.header;
    }
}

}  // namespace
