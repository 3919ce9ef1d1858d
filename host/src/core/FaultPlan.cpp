#include "vexhost/FaultPlan.h"

#include <ostream>

namespace vexhost {

void FaultPlan::record() {
    recording_ = true;
    sites_.clear();
}

void FaultPlan::failSite(uint64_t k) {
    countdown_ = k;
    struck_ = false;
}

void FaultPlan::stop() {
    recording_ = false;
    countdown_ = 0;
}

bool FaultPlan::strike(Fault fault, const std::string& description) {
    ++count_;
    if (recording_)
        sites_.push_back({fault, description});
    if (countdown_ == 0 || --countdown_ != 0)
        return false;
    struck_ = true;
    struckSite_ = {fault, description};
    return true;
}

void FaultPlan::reset() {
    recording_ = false;
    countdown_ = 0;
    count_ = 0;
    struck_ = false;
    struckSite_ = {Fault::StyleGetRefused, std::string()};
    sites_.clear();
}

const char* toString(FaultPlan::Fault fault) {
    switch (fault) {
        case FaultPlan::Fault::StyleGetRefused:
            return "StyleGetRefused";
        case FaultPlan::Fault::StyleSetRefused:
            return "StyleSetRefused";
        case FaultPlan::Fault::ExportStartRefused:
            return "ExportStartRefused";
        case FaultPlan::Fault::StopPressed:
            return "StopPressed";
        case FaultPlan::Fault::StringAllocationFails:
            return "StringAllocationFails";
        case FaultPlan::Fault::ListModelObserverThrows:
            return "ListModelObserverThrows";
        case FaultPlan::Fault::StateChangeListenerThrows:
            return "StateChangeListenerThrows";
    }
    return "<unknown fault>";
}

std::ostream& operator<<(std::ostream& out, FaultPlan::Fault fault) {
    return out << toString(fault);
}

}  // namespace vexhost
