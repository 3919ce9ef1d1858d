// The callback's dispatch, run through a manager of commands made for this test: each command's
// executer shows what the callback did with it (created, executed with which parameters,
// destroyed) or fails in one of the ways an executer can.
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "addon/HostString.h"
#include "addon/KeyFrameError.h"
#include "macro/MacroCommandManager.h"
#include "support/AddOnFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/Bookkeeping.h"

namespace vexplot {
namespace vexutiltools {
namespace {

enum class Verb_e : int32_t { Run = 0, Halt = 1, Crash = 2, Panic = 3, Jump = 4 };
enum class Arg_e : int32_t { Speed = 0, Name = 1 };

std::ostream& operator<<(std::ostream& out, Arg_e arg) {
    return out << (arg == Arg_e::Speed ? "Speed" : "Name");
}

}  // namespace

template <>
const NameTable<Verb_e>& NameTable<Verb_e>::instance() {
    static const NameTable<Verb_e> table{{Verb_e::Run, "Run"},
                                         {Verb_e::Halt, "Halt"},
                                         {Verb_e::Crash, "Crash"},
                                         {Verb_e::Panic, "Panic"},
                                         {Verb_e::Jump, "Jump"}};
    return table;
}

template <>
const NameTable<Arg_e>& NameTable<Arg_e>::instance() {
    static const NameTable<Arg_e> table{{Arg_e::Speed, "Speed"}, {Arg_e::Name, "Name"}};
    return table;
}

namespace {

using TestManager = MacroCommandManager<Verb_e, Arg_e, KeyFrameError>;

// What the executers saw, reset by the fixture.
struct Journal {
    int created = 0;
    int executed = 0;
    int destroyed = 0;
    TestManager::Parameters parameters;
};
Journal journal;

class Executer {
public:
    explicit Executer(Verb_e verb) : verb_(verb) { ++journal.created; }
    ~Executer() { ++journal.destroyed; }

    void execute(const TestManager::Parameters& parameters) {
        ++journal.executed;
        journal.parameters = parameters;
        switch (verb_) {
            case Verb_e::Halt:
                throw KeyFrameError("Halted at the first step.");
            case Verb_e::Crash:
                throw std::runtime_error("a standard failure");
            case Verb_e::Panic:
                throw 42;
            default:
                break;
        }
    }

private:
    Verb_e verb_;
};

// Found by the manager through argument-dependent lookup. Jump has no executer.
std::unique_ptr<Executer> createCommandExecuter(Verb_e verb) {
    if (verb == Verb_e::Jump)
        return nullptr;
    return std::make_unique<Executer>(verb);
}

class MacroCommandCallbackTest : public vextest::AddOnFixture {
protected:
    void SetUp() override {
        vextest::AddOnFixture::SetUp();
        journal = Journal();
    }

    // The callback's answer, and its error text (empty when none was stored).
    bool call(const char* command, std::string& error) {
        HostString errorText;
        const bool ok = TestManager::macroCommandCallback(command, errorText.receive());
        error = errorText.str();
        return ok;
    }
};

TEST_F(MacroCommandCallbackTest, RunsTheExecuterOnceWithTheParametersAndDestroysIt) {
    std::string error;
    EXPECT_TRUE(call("run speed=3 Name=\"a b\" SPEED=4", error));
    EXPECT_EQ("", error);
    EXPECT_EQ(1, journal.created);
    EXPECT_EQ(1, journal.executed);
    EXPECT_EQ(1, journal.destroyed);
    EXPECT_EQ(
        (TestManager::Parameters{{Arg_e::Speed, "3"}, {Arg_e::Name, "a b"}, {Arg_e::Speed, "4"}}),
        journal.parameters);
}

TEST_F(MacroCommandCallbackTest, AnExecutersErrorReachesTheHostUnchanged) {
    std::string error;
    EXPECT_FALSE(call("Halt", error));
    EXPECT_EQ("Key Frame Animation error:\nHalted at the first step.", error);
    EXPECT_EQ(1, journal.destroyed);
}

TEST_F(MacroCommandCallbackTest, AStandardFailureReachesTheHostWithItsText) {
    std::string error;
    EXPECT_FALSE(call("Crash", error));
    EXPECT_EQ("Key Frame Animation error:\na standard failure", error);
    EXPECT_EQ(1, journal.destroyed);
}

TEST_F(MacroCommandCallbackTest, AnyOtherFailureStillGivesFalseAndAMessage) {
    std::string error;
    EXPECT_FALSE(call("Panic", error));
    EXPECT_EQ("Key Frame Animation error:\nThe macro command failed for an unknown reason.", error);
    EXPECT_EQ(1, journal.destroyed);
}

TEST_F(MacroCommandCallbackTest, ACommandWithoutAnExecuterFailsByName) {
    std::string error;
    EXPECT_FALSE(call("jump speed=1", error));
    EXPECT_EQ("Key Frame Animation error:\nThe macro command Jump is not available.", error);
    EXPECT_EQ(0, journal.created);
}

TEST_F(MacroCommandCallbackTest, AParserFailureCreatesNoExecuter) {
    std::string error;
    EXPECT_FALSE(call("Run Speed", error));
    EXPECT_EQ("Key Frame Animation error:\nInvalid macro command string format.", error);
    EXPECT_EQ(0, journal.created);
}

TEST_F(MacroCommandCallbackTest, ARefusedMessageAllocationStillAnswersFalse) {
    host().bookkeeping().failStringAllocation(1);
    std::string error;
    EXPECT_FALSE(call("Halt", error));
    EXPECT_EQ("", error);
}

TEST_F(MacroCommandCallbackTest, TheMessageBufferIsTheMessageLengthPlus29) {
    startCallLog();
    std::string error;
    EXPECT_FALSE(call("Halt", error));
    const std::string message = "Halted at the first step.";
    const std::vector<std::string> log = takeCallLog();
    ASSERT_EQ(4u, log.size());
    EXPECT_EQ(vextest::addOnLockStart(), log[0]);
    EXPECT_EQ("VexUtilStringAlloc(" + std::to_string(message.size() + 29) +
                  ", \"Key Frame Animation macro error\")",
              log[1]);
    EXPECT_EQ(vextest::addOnLockFinish(), log[2]);
    EXPECT_EQ(0u, log[3].rfind(vextest::callLineStart("VexUtilStringDealloc"), 0))
        << "the test's own holder frees it";
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
