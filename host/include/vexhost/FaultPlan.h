// Planned host failures, for testing that an add-on survives every way the host can let it down.
//
// A fault site is a place where the host can fail an add-on's request:
//   StyleGetRefused        VexUtilStyleGetLowLevelX answers VexGetValue_ContextError, the value
//                          untouched
//   StyleSetRefused        VexUtilStyleSetLowLevelX answers VexSetValue_ContextError, nothing set,
//                          no state change sent
//   ExportStartRefused     VexUtilExportStart answers false, no export opened
//   StopPressed            the user presses Stop at this VexUtilStatusCheckPercentDone: it and
//                          every later check of the same status answer false
//   StringAllocationFails  a host string (VexUtilStringAlloc, or one a getter hands out) is NULL
// and two sites that the code observing an add-on's model or the host passes through itself, by
// calling strike() (the host calls nothing there: the observer is the test's):
//   ListModelObserverThrows     a list model observer is told of a change
//   StateChangeListenerThrows   a state change listener is told of a state change
//
// Every site passes through strike(), which counts it. The plan does nothing until it is told to:
// - record(): from now on every site is kept, in order, with a description ("function(arguments)"
//   as the call log writes it), so a test can list the sites of a run;
// - failSite(k): the k-th site from now fails (1-based), once. struck() tells whether it did.
// A test records a run, then replays it once per recorded site with that site failing: each
// position k of the run, failed in the way that site can fail (tests/hardening).
//
// With the plan idle, a site costs one test of a flag: the style calls stay on the hot path.
#ifndef VEXHOST_FAULTPLAN_H
#define VEXHOST_FAULTPLAN_H

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace vexhost {

class FaultPlan {
public:
    enum class Fault {
        StyleGetRefused,
        StyleSetRefused,
        ExportStartRefused,
        StopPressed,
        StringAllocationFails,
        ListModelObserverThrows,
        StateChangeListenerThrows
    };
    struct Site {
        Fault fault;
        std::string description;
    };

    FaultPlan() = default;
    FaultPlan(const FaultPlan&) = delete;
    FaultPlan& operator=(const FaultPlan&) = delete;

    // Keeps every site from now on (and forgets the sites kept before).
    void record();
    bool isRecording() const { return recording_; }
    const std::vector<Site>& sites() const { return sites_; }

    // The k-th site from now fails (k >= 1); 0 disarms. Clears struck().
    void failSite(uint64_t k);
    // Stops recording and disarms; the sites kept and struck() stay as they are.
    void stop();
    // Whether the planned site has been reached and failed.
    bool struck() const { return struck_; }
    // The site that failed; valid while struck().
    const Site& struckSite() const { return struckSite_; }

    // Whether strike() needs to be called at all: false while the plan neither records nor is
    // armed, so a site can skip describing itself.
    bool isActive() const { return recording_ || countdown_ != 0; }

    // A site is reached: counts it, keeps it while recording, and answers whether it fails.
    // The description is only read while recording or when the site fails.
    bool strike(Fault fault, const std::string& description);

    // Sites counted since the last reset, recorded or not.
    uint64_t siteCount() const { return count_; }

    // Not recording, disarmed, nothing kept, count 0.
    void reset();

private:
    bool recording_ = false;
    uint64_t countdown_ = 0;
    uint64_t count_ = 0;
    bool struck_ = false;
    Site struckSite_{Fault::StyleGetRefused, std::string()};
    std::vector<Site> sites_;
};

const char* toString(FaultPlan::Fault fault);
std::ostream& operator<<(std::ostream& out, FaultPlan::Fault fault);

}  // namespace vexhost

#endif
