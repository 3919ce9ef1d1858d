// Host memory handed to add-ons: strings (VexUtilStringAlloc and strings returned by getters),
// arrays, sets and string lists. Each stays outstanding until the matching dealloc call; tests
// assert that none is left. Freeing something the host did not hand out, or freeing it twice, is
// refused (the SDK layer records a host error) and touches no memory.
//
// A control call makes the k-th next string allocation fail, for tests of the add-on's handling of
// a host that is out of memory: every host string counts (VexUtilStringAlloc and getters alike).
// Each string allocation is also a site of the host's fault plan
// (FaultPlan::StringAllocationFails).
#ifndef VEXHOST_BOOKKEEPING_H
#define VEXHOST_BOOKKEEPING_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "vxsdkbase.h"

namespace vexhost {

class FaultPlan;

class Bookkeeping {
public:
    enum class Kind { String, Array, Set, StringList };

    // The plan is not owned and must outlive the bookkeeping.
    explicit Bookkeeping(FaultPlan& faults) : faults_(faults) {}
    ~Bookkeeping();
    Bookkeeping(const Bookkeeping&) = delete;
    Bookkeeping& operator=(const Bookkeeping&) = delete;

    std::size_t outstanding(Kind kind) const;
    std::size_t outstandingTotal() const;
    // Handed out since the last reset, freed or not.
    uint64_t handedOut(Kind kind) const { return handedOut_[index(kind)]; }

    // The k-th string allocation from now fails (k >= 1; 0 disarms).
    void failStringAllocation(uint64_t k) { failCountdown_ = k; }

    // ---- Host side ----
    // A zeroed buffer of maxLength characters plus the NUL, or nullptr when made to fail.
    char* allocateString(std::size_t maxLength);
    // A copy of the text, or nullptr when made to fail.
    char* copyString(const std::string& text);
    bool isString(const char* string) const;
    // False when the string was not handed out (or was freed already).
    bool freeString(char* string);

    void* allocateArray(std::size_t bytes);
    bool freeArray(void* array);

    VexSet_pa createSet(std::vector<VexSetIndex_t> members);  // ascending, 1-based
    // nullptr when the set is not outstanding.
    const std::vector<VexSetIndex_t>* setMembers(VexSet_pa set) const;
    bool freeSet(VexSet_pa set);

    VexStringList_pa createStringList();
    // nullptr when the list is not outstanding.
    std::vector<std::string>* stringList(VexStringList_pa list);
    bool freeStringList(VexStringList_pa list);

    // Frees everything outstanding (pointers held by anyone dangle from then on), counts 0.
    void reset();

private:
    static std::size_t index(Kind kind) { return static_cast<std::size_t>(kind); }

    struct HostSet {
        std::vector<VexSetIndex_t> members;
    };
    struct HostStringList {
        std::vector<std::string> strings;
    };

    std::unordered_map<const char*, std::unique_ptr<char[]>> strings_;
    std::unordered_map<const void*, std::unique_ptr<unsigned char[]>> arrays_;
    std::unordered_map<const void*, std::unique_ptr<HostSet>> sets_;
    std::unordered_map<const void*, std::unique_ptr<HostStringList>> stringLists_;
    std::array<uint64_t, 4> handedOut_ = {};
    uint64_t failCountdown_ = 0;
    FaultPlan& faults_;
};

}  // namespace vexhost

#endif
