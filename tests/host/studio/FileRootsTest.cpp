// The folders the studio's file chooser and downloads may reach, and nothing outside them.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "studio/FileRoots.h"
#include "support/TemporaryDirectory.h"

namespace {

namespace fs = std::filesystem;
using vexhost::studio::FileRoots;

class FileRootsTest : public ::testing::Test {
protected:
    FileRootsTest() {
        fs::create_directories(root_.path() / "movies");
        std::ofstream(root_.path() / "movies" / "a.mp4") << "12345";
        std::ofstream(root_.path() / "b.keyframe") << "#!KeyFrame";
        std::ofstream(outside_.path() / "secret") << "s";
        fs::create_symlink(outside_.path(), root_.path() / "away");
        fs::create_symlink(root_.path() / "movies", root_.path() / "shortcut");
    }

    fs::path canonicalRoot() const { return fs::canonical(root_.path()); }

    vextest::TemporaryDirectory root_{"roots-in"}, outside_{"roots-out"};
    FileRoots roots_{{root_.path()}};
};

TEST_F(FileRootsTest, PathsInsideResolveAlsoForNewFiles) {
    EXPECT_EQ(canonicalRoot() / "movies" / "a.mp4", roots_.resolve(0, "movies/a.mp4"));
    EXPECT_EQ(canonicalRoot() / "new.keyframe", roots_.resolve(0, "new.keyframe"));
    EXPECT_EQ(canonicalRoot(), roots_.resolve(0, ""));
    EXPECT_EQ(canonicalRoot() / "movies" / "a.mp4", roots_.resolve(0, "shortcut/a.mp4"));
}

TEST_F(FileRootsTest, NothingOutsideIsReached) {
    for (const std::string& path :
         {std::string(".."), std::string("../roots-out/secret"), std::string("movies/../../x"),
          std::string("/etc/passwd"), std::string("away/secret"), std::string("away"),
          std::string("a\0b", 3), (outside_.path() / "secret").string()})
        EXPECT_EQ(std::nullopt, roots_.resolve(0, path)) << path;
    EXPECT_EQ(std::nullopt, roots_.resolve(1, "b.keyframe"));
}

TEST_F(FileRootsTest, ListingShowsFoldersFirstAndLeavesOutLinksLeadingOut) {
    const std::vector<FileRoots::Entry> entries = roots_.list(0, "");
    std::vector<std::string> names;
    for (const FileRoots::Entry& entry : entries)
        names.push_back(entry.name + (entry.directory ? "/" : ""));
    EXPECT_EQ((std::vector<std::string>{"movies/", "shortcut/", "b.keyframe"}), names);
    EXPECT_EQ(10u, entries.back().size);
    EXPECT_EQ(5u, roots_.list(0, "movies").at(0).size);
    EXPECT_THROW(roots_.list(0, "b.keyframe"), std::runtime_error);
    EXPECT_THROW(roots_.list(0, "away"), std::runtime_error);
    EXPECT_THROW(roots_.list(0, ".."), std::runtime_error);
}

TEST_F(FileRootsTest, LocateGivesTheRootAndTheRelativePath) {
    const auto place = roots_.locate(root_.path() / "movies" / "a.mp4");
    ASSERT_TRUE(place);
    EXPECT_EQ(0u, place->first);
    EXPECT_EQ("movies/a.mp4", place->second);
    EXPECT_EQ(std::nullopt, roots_.locate(outside_.path() / "secret"));
}

TEST_F(FileRootsTest, AMissingFolderIsNamed) {
    try {
        FileRoots({root_.path() / "nothing"});
        FAIL() << "a missing folder was taken";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string::npos, std::string(error.what()).find("nothing\" does not exist"));
    }
}

}  // namespace
