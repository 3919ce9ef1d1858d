// The data set, solution time and host sets.
#include <algorithm>
#include <cmath>
#include <string>

#include "sdk/SdkCall.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/DataSet.h"
#include "vexhost/StateNotifier.h"

using vexhost::sdk::SdkCall;

bool VexUtilDataSetIsAvailable(void) {
    SdkCall call("VexUtilDataSetIsAvailable");
    return call.host().dataSet().isAvailable();
}

int32_t VexUtilDataSetGetNumZones(void) {
    SdkCall call("VexUtilDataSetGetNumZones");
    return call.host().dataSet().zoneCount();
}

double VexUtilSolutionTimeGetCurrent(void) {
    SdkCall call("VexUtilSolutionTimeGetCurrent");
    return call.host().dataSet().solutionTime();
}

VexSetValueReturnCode_e VexUtilSolutionTimeSetCurrent(double solutionTime) {
    SdkCall call("VexUtilSolutionTimeSetCurrent", solutionTime);
    call.requireLock();
    if (!std::isfinite(solutionTime))
        return VexSetValue_InvalidValue;
    // Stored as given: the host does not snap to the zones' times.
    call.host().dataSet().setSolutionTime(solutionTime);
    call.host().stateChanges().send(VexStateChange_SolutionTime);
    return VexSetValue_Ok;
}

bool VexUtilZoneGetEnabled(VexSet_pa* enabledZones) {
    SdkCall call("VexUtilZoneGetEnabled");
    if (enabledZones == nullptr) {
        call.error("no place for the set was given");
        return false;
    }
    *enabledZones = nullptr;
    const vexhost::DataSet& dataSet = call.host().dataSet();
    if (!dataSet.isAvailable())
        return false;
    std::vector<VexSetIndex_t> members;
    for (int32_t zone : dataSet.enabledZones())
        members.push_back(zone);
    *enabledZones = call.host().bookkeeping().createSet(std::move(members));
    return true;
}

double VexUtilZoneGetSolutionTime(int32_t zone) {
    SdkCall call("VexUtilZoneGetSolutionTime", zone);
    const vexhost::DataSet& dataSet = call.host().dataSet();
    if (!dataSet.isValidZone(zone)) {
        call.error("there is no zone " + std::to_string(zone) + " (the data set has " +
                   std::to_string(dataSet.zoneCount()) + ")");
        return 0;
    }
    return dataSet.zone(zone).solutionTime;
}

int32_t VexUtilZoneGetStrandID(int32_t zone) {
    SdkCall call("VexUtilZoneGetStrandID", zone);
    const vexhost::DataSet& dataSet = call.host().dataSet();
    if (!dataSet.isValidZone(zone)) {
        call.error("there is no zone " + std::to_string(zone) + " (the data set has " +
                   std::to_string(dataSet.zoneCount()) + ")");
        return 0;
    }
    return dataSet.zone(zone).strandId;
}

VexSetIndex_t VexUtilSetGetNextMember(VexSet_pa set, VexSetIndex_t member) {
    SdkCall call("VexUtilSetGetNextMember", member);
    const std::vector<VexSetIndex_t>* members = call.host().bookkeeping().setMembers(set);
    if (members == nullptr) {
        call.error("the set was not handed out by the host, or was freed");
        return VEX_SET_NO_MEMBER;
    }
    const auto next = std::upper_bound(members->begin(), members->end(), member);
    return next == members->end() ? VEX_SET_NO_MEMBER : *next;
}

VexSetIndex_t VexUtilSetGetMemberCount(VexSet_pa set) {
    SdkCall call("VexUtilSetGetMemberCount");
    const std::vector<VexSetIndex_t>* members = call.host().bookkeeping().setMembers(set);
    if (members == nullptr) {
        call.error("the set was not handed out by the host, or was freed");
        return 0;
    }
    return static_cast<VexSetIndex_t>(members->size());
}

void VexUtilSetDealloc(VexSet_pa* set) {
    SdkCall call("VexUtilSetDealloc");
    if (set == nullptr) {
        call.error("no set was given");
        return;
    }
    if (*set == nullptr)
        return;  // freeing nothing is allowed, as with free()
    if (!call.host().bookkeeping().freeSet(*set)) {
        call.error("the set was not handed out by the host, or was freed already");
        return;
    }
    *set = nullptr;
}
