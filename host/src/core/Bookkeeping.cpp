#include "vexhost/Bookkeeping.h"

#include <cstring>
#include <string>

#include "vexhost/FaultPlan.h"

namespace vexhost {

Bookkeeping::~Bookkeeping() = default;

std::size_t Bookkeeping::outstanding(Kind kind) const {
    switch (kind) {
        case Kind::String:
            return strings_.size();
        case Kind::Array:
            return arrays_.size();
        case Kind::Set:
            return sets_.size();
        case Kind::StringList:
            return stringLists_.size();
    }
    return 0;
}

std::size_t Bookkeeping::outstandingTotal() const {
    return strings_.size() + arrays_.size() + sets_.size() + stringLists_.size();
}

char* Bookkeeping::allocateString(std::size_t maxLength) {
    if (failCountdown_ > 0 && --failCountdown_ == 0)
        return nullptr;
    if (faults_.isActive() &&
        faults_.strike(FaultPlan::Fault::StringAllocationFails,
                       "a host string of " + std::to_string(maxLength) + " characters"))
        return nullptr;
    auto buffer = std::make_unique<char[]>(maxLength + 1);  // zeroed
    char* string = buffer.get();
    strings_.emplace(string, std::move(buffer));
    ++handedOut_[index(Kind::String)];
    return string;
}

char* Bookkeeping::copyString(const std::string& text) {
    char* string = allocateString(text.size());
    if (string != nullptr)
        std::memcpy(string, text.data(), text.size());
    return string;
}

bool Bookkeeping::isString(const char* string) const {
    return strings_.count(string) > 0;
}

bool Bookkeeping::freeString(char* string) {
    return strings_.erase(string) > 0;
}

void* Bookkeeping::allocateArray(std::size_t bytes) {
    auto buffer = std::make_unique<unsigned char[]>(bytes > 0 ? bytes : 1);
    void* array = buffer.get();
    arrays_.emplace(array, std::move(buffer));
    ++handedOut_[index(Kind::Array)];
    return array;
}

bool Bookkeeping::freeArray(void* array) {
    return arrays_.erase(array) > 0;
}

VexSet_pa Bookkeeping::createSet(std::vector<VexSetIndex_t> members) {
    auto set = std::make_unique<HostSet>();
    set->members = std::move(members);
    // The handle is the record's address; it is only compared, never dereferenced by callers.
    const VexSet_pa handle = reinterpret_cast<VexSet_pa>(set.get());
    sets_.emplace(set.get(), std::move(set));
    ++handedOut_[index(Kind::Set)];
    return handle;
}

const std::vector<VexSetIndex_t>* Bookkeeping::setMembers(VexSet_pa set) const {
    const auto it = sets_.find(reinterpret_cast<const void*>(set));
    return it == sets_.end() ? nullptr : &it->second->members;
}

bool Bookkeeping::freeSet(VexSet_pa set) {
    return sets_.erase(reinterpret_cast<const void*>(set)) > 0;
}

VexStringList_pa Bookkeeping::createStringList() {
    auto list = std::make_unique<HostStringList>();
    const VexStringList_pa handle = reinterpret_cast<VexStringList_pa>(list.get());
    stringLists_.emplace(list.get(), std::move(list));
    ++handedOut_[index(Kind::StringList)];
    return handle;
}

std::vector<std::string>* Bookkeeping::stringList(VexStringList_pa list) {
    const auto it = stringLists_.find(reinterpret_cast<const void*>(list));
    return it == stringLists_.end() ? nullptr : &it->second->strings;
}

bool Bookkeeping::freeStringList(VexStringList_pa list) {
    return stringLists_.erase(reinterpret_cast<const void*>(list)) > 0;
}

void Bookkeeping::reset() {
    strings_.clear();
    arrays_.clear();
    sets_.clear();
    stringLists_.clear();
    handedOut_.fill(0);
    failCountdown_ = 0;
}

}  // namespace vexhost
