// Mistakes the host saw an add-on make: a lock finish without a start, a state change outside the
// lock, a string freed twice, a question nobody answered... Each is recorded as one text that
// starts with the SDK function's name ("VexUtilLockFinish: no lock is held"), never ignored: tests
// and vexplot treat any recorded error as a failed run.
#ifndef VEXHOST_HOSTERRORS_H
#define VEXHOST_HOSTERRORS_H

#include <string>
#include <vector>

namespace vexhost {

class HostErrors {
public:
    // Records "<function>: <problem>".
    void record(const char* function, const std::string& problem);

    bool empty() const { return texts_.empty(); }
    std::size_t count() const { return texts_.size(); }
    const std::vector<std::string>& texts() const { return texts_; }
    // The errors so far, leaving none: for tests that provoke errors on purpose.
    std::vector<std::string> take();
    void clear() { texts_.clear(); }

private:
    std::vector<std::string> texts_;
};

}  // namespace vexhost

#endif
