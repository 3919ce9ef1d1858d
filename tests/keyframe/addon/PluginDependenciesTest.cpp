// The plug-in is built against the host's SDK and nothing else: the libraries it needs are the SDK
// libraries and the system's C and C++ runtime, never the host's own library, and it finds the SDK
// libraries beside itself wherever the build tree is. PluginLoadTest loads it into a process that
// provides the SDK.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "support/CommandOutput.h"

namespace {

// The values of the library's dynamic section entries of that type ("NEEDED", "RUNPATH"), from
// readelf's lines such as " 0x0000000000000001 (NEEDED)  Shared library: [libvxsdkbase.so]".
std::vector<std::string> dynamicEntries(const std::string& library, const std::string& type) {
    std::vector<std::string> values;
    for (const std::string& line :
         vextest::commandOutputLines("readelf -d " + vextest::shellQuoted(library))) {
        const std::size_t open = line.find('[');
        const std::size_t close = line.rfind(']');
        if (line.find("(" + type + ")") != std::string::npos && open != std::string::npos &&
            close > open)
            values.push_back(line.substr(open + 1, close - open - 1));
    }
    return values;
}

const std::set<std::string> SdkLibraries = {"libvxsdkbase.so", "libvexgui.so",
                                            "libvxappaddonuiaction.so", "libcommon_strutil.so"};

// The C and C++ runtime, and the sanitizers' runtime in a sanitizer build.
bool isSystemRuntime(const std::string& library) {
    for (const char* runtime :
         {"libc.so.", "libm.so.", "libstdc++.so.", "libgcc_s.so.", "libasan.so.", "libubsan.so."}) {
        if (library.rfind(runtime, 0) == 0)
            return true;
    }
    return false;
}

TEST(PluginDependenciesTest, NeedsOnlyTheSdkLibrariesAndTheSystemRuntime) {
    const std::vector<std::string> needed = dynamicEntries(VEX_ADDON_LIBRARY_PATH, "NEEDED");
    ASSERT_FALSE(needed.empty()) << "readelf lists no NEEDED entry of " << VEX_ADDON_LIBRARY_PATH;
    for (const std::string& library : needed) {
        EXPECT_EQ(std::string::npos, library.find("vexhost")) << "the plug-in needs " << library;
        EXPECT_TRUE(SdkLibraries.count(library) != 0 || isSystemRuntime(library))
            << "the plug-in needs " << library
            << ", which is neither an SDK library nor the system's runtime";
    }
}

TEST(PluginDependenciesTest, NeedsTheSdkBaseLibrary) {
    const std::vector<std::string> needed = dynamicEntries(VEX_ADDON_LIBRARY_PATH, "NEEDED");
    EXPECT_NE(needed.end(), std::find(needed.begin(), needed.end(), "libvxsdkbase.so"));
}

TEST(PluginDependenciesTest, FindsTheSdkLibrariesItNeedsBesideItself) {
    const std::vector<std::string> runPath = dynamicEntries(VEX_ADDON_LIBRARY_PATH, "RUNPATH");
    ASSERT_EQ(1u, runPath.size()) << "the plug-in has no RUNPATH";
    EXPECT_EQ("$ORIGIN", runPath.front());
    const std::filesystem::path directory =
        std::filesystem::path(VEX_ADDON_LIBRARY_PATH).parent_path();
    for (const std::string& library : dynamicEntries(VEX_ADDON_LIBRARY_PATH, "NEEDED")) {
        if (SdkLibraries.count(library) != 0) {
            EXPECT_TRUE(std::filesystem::exists(directory / library)) << library;
        }
    }
}

}  // namespace
