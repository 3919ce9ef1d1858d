// Loads the built plug-in as a host does: dlopen, look up the entry point, call it. The plug-in
// carries its own copy of the add-on code and shares this process's host(). This program provides
// the SDK (it links the SDK libraries), so the plug-in needs nothing more from the system.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <link.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/UserDialogs.h"

namespace {

class LoadedPlugin {
public:
    explicit LoadedPlugin(const char* path) : handle_(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {}
    ~LoadedPlugin() {
        if (handle_ != nullptr)
            dlclose(handle_);
    }
    LoadedPlugin(const LoadedPlugin&) = delete;
    LoadedPlugin& operator=(const LoadedPlugin&) = delete;

    bool isLoaded() const { return handle_ != nullptr; }
    void* symbol(const char* name) const { return dlsym(handle_, name); }

private:
    void* handle_;
};

// The paths of the shared objects loaded in this process.
std::set<std::string> loadedObjects() {
    std::set<std::string> objects;
    dl_iterate_phdr(
        [](dl_phdr_info* info, std::size_t, void* data) {
            if (info->dlpi_name != nullptr && info->dlpi_name[0] != '\0')
                static_cast<std::set<std::string>*>(data)->insert(info->dlpi_name);
            return 0;
        },
        &objects);
    return objects;
}

TEST(PluginLoadIntoSdkProcessTest, LoadingBringsInNothingButThePlugIn) {
    const std::set<std::string> before = loadedObjects();
    const LoadedPlugin plugin{VEX_ADDON_LIBRARY_PATH};
    ASSERT_TRUE(plugin.isLoaded()) << dlerror();
    for (const std::string& object : loadedObjects()) {
        if (before.count(object) == 0) {
            EXPECT_TRUE(std::filesystem::equivalent(object, VEX_ADDON_LIBRARY_PATH))
                << "loading the plug-in also loaded " << object;
        }
    }
}

class PluginLoadTest : public vextest::HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        ASSERT_TRUE(plugin.isLoaded()) << dlerror();
        using EntryPoint = void (*)();
        const auto entryPoint = reinterpret_cast<EntryPoint>(plugin.symbol("InitVexAddOn113"));
        ASSERT_NE(nullptr, entryPoint) << "InitVexAddOn113 is not exported";
        entryPoint();
    }

    bool chooseMenuItem() {
        return host().addOns().chooseMenuOption("Animate", "&Key Frame Animation...");
    }

    LoadedPlugin plugin{VEX_ADDON_LIBRARY_PATH};
};

TEST_F(PluginLoadTest, EntryPointRegistersTheAddOnAsKeyFrameAnimation) {
    ASSERT_EQ(1u, host().addOns().addOnCount());
    EXPECT_EQ("Key Frame Animation", host().addOns().addOn(0).name);
    EXPECT_NE(nullptr, host().addOns().findByName("Key Frame Animation"));
}

TEST_F(PluginLoadTest, EntryPointAddsTheMenuItemUnderAnimate) {
    ASSERT_EQ(1u, host().addOns().menuOptions().size());
    EXPECT_EQ("Animate", host().addOns().menuOptions()[0].menuPath);
    EXPECT_EQ("&Key Frame Animation...", host().addOns().menuOptions()[0].label);
}

TEST_F(PluginLoadTest, EntryPointRegistersTheMacroCallbackUnderTheAddOnName) {
    EXPECT_TRUE(host().addOns().hasMacroCallback("Key Frame Animation"));
}

TEST_F(PluginLoadTest, MenuItemWithNoFramesShowsOnlyAllowedWith3DPlots) {
    ASSERT_TRUE(chooseMenuItem());
    EXPECT_EQ(std::vector<std::string>{"Keyframe animation is only allowed with 3D plots."},
              host().userDialogs().errorMessages());
}

TEST_F(PluginLoadTest, MenuItemWithA2DFrameShowsOnlyAllowedWith3DPlots) {
    host().frames().create(VexPlotType_Cartesian2D);
    ASSERT_TRUE(chooseMenuItem());
    EXPECT_EQ(std::vector<std::string>{"Keyframe animation is only allowed with 3D plots."},
              host().userDialogs().errorMessages());
}

TEST_F(PluginLoadTest, MacroCommandFailsWithTheAddOnErrorText) {
    const vexhost::AddOnRegistry::CommandResult result =
        host().addOns().runMacroCommand("Key Frame Animation", "Fly");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ("Key Frame Animation error:\nUnknown macro command: Fly", result.error);
}

}  // namespace
