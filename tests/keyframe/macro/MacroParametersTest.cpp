#include "macro/MacroParameters.h"

#include <gtest/gtest.h>

#include <string>

#include "addon/KeyFrameError.h"

namespace vexplot {
namespace vexutiltools {
namespace {

using Parameters = CommandExecuterAbstract::Parameters;

template <typename Fetch>
std::string failure(Fetch fetch) {
    try {
        fetch();
    } catch (const KeyFrameError& error) {
        return error.what();
    }
    return "(no failure)";
}

TEST(MacroParametersTest, TheFileNameIsTheFirstOneGivenAsItStands) {
    EXPECT_EQ(getFileNameParameter({{Parameter_e::AnimationDestination, "x"},
                                    {Parameter_e::FileName, " a \"b\" "},
                                    {Parameter_e::FileName, "later"}}),
              " a \"b\" ");
    EXPECT_EQ(getFileNameParameter({{Parameter_e::FileName, ""}}), "");
}

TEST(MacroParametersTest, AMissingFileNameIsNamed) {
    EXPECT_EQ(failure([] { getFileNameParameter({}); }),
              "Invalid macro command: missing value for parameter \"FileName\"");
    EXPECT_EQ(failure([] {
                  getFileNameParameter({{Parameter_e::AnimationDestination, "ToFile"}});
              }),
              "Invalid macro command: missing value for parameter \"FileName\"");
}

TEST(MacroParametersTest, TheDestinationIsTheFirstOneGivenInAnyCase) {
    EXPECT_EQ(getDestinationParameter({{Parameter_e::AnimationDestination, "TOFILE"}}),
              Destination_e::ToFile);
    EXPECT_EQ(getDestinationParameter({{Parameter_e::FileName, "OnScreen"},
                                       {Parameter_e::AnimationDestination, "onscreen"},
                                       {Parameter_e::AnimationDestination, "Screen"}}),
              Destination_e::OnScreen);
}

TEST(MacroParametersTest, AMissingOrUnknownDestinationIsNamed) {
    EXPECT_EQ(failure([] {
                  getDestinationParameter({{Parameter_e::FileName, "ToFile"}});
              }),
              "Invalid macro command: missing value for parameter \"AnimationDestination\"");
    for (const char* value : {"Screen", "", "ToFile ", "1"}) {
        EXPECT_EQ(failure([value] {
                      getDestinationParameter({{Parameter_e::AnimationDestination, value}});
                  }),
                  "Invalid macro command: invalid value for parameter \"AnimationDestination\"")
            << value;
    }
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
