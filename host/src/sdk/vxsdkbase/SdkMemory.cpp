// Host memory: strings, arrays and string lists.
#include <string>

#include "sdk/SdkCall.h"
#include "vexhost/Bookkeeping.h"

using vexhost::sdk::FreedString;
using vexhost::sdk::SdkCall;

char* VexUtilStringAlloc(int32_t maxLength, const char* debugInfo) {
    SdkCall call("VexUtilStringAlloc", maxLength, debugInfo);
    if (maxLength < 0) {
        call.error("the length " + std::to_string(maxLength) + " is negative");
        return nullptr;
    }
    return call.host().bookkeeping().allocateString(static_cast<std::size_t>(maxLength));
}

void VexUtilStringDealloc(char** string) {
    if (string == nullptr) {
        SdkCall call("VexUtilStringDealloc");
        call.error("no string was given");
        return;
    }
    SdkCall call("VexUtilStringDealloc", FreedString{*string});
    if (*string == nullptr)
        return;  // freeing nothing is allowed, as with free()
    vexhost::Bookkeeping& memory = call.host().bookkeeping();
    if (!memory.isString(*string)) {
        call.error("the string was not handed out by the host, or was freed already");
        return;
    }
    memory.freeString(*string);
    *string = nullptr;
}

void VexUtilArrayDealloc(void** array) {
    SdkCall call("VexUtilArrayDealloc");
    if (array == nullptr) {
        call.error("no array was given");
        return;
    }
    if (*array == nullptr)
        return;
    if (!call.host().bookkeeping().freeArray(*array)) {
        call.error("the array was not handed out by the host, or was freed already");
        return;
    }
    *array = nullptr;
}

VexStringList_pa VexUtilStringListAlloc(void) {
    SdkCall call("VexUtilStringListAlloc");
    return call.host().bookkeeping().createStringList();
}

namespace {

std::vector<std::string>* requireList(const SdkCall& call, VexStringList_pa list) {
    std::vector<std::string>* strings = call.host().bookkeeping().stringList(list);
    if (strings == nullptr)
        call.error("the string list was not handed out by the host, or was freed");
    return strings;
}

}  // namespace

bool VexUtilStringListAppendString(VexStringList_pa list, const char* string) {
    SdkCall call("VexUtilStringListAppendString", string);
    std::vector<std::string>* strings = requireList(call, list);
    if (strings == nullptr)
        return false;
    if (string == nullptr) {
        call.error("the string is missing");
        return false;
    }
    strings->emplace_back(string);
    return true;
}

int32_t VexUtilStringListGetCount(VexStringList_pa list) {
    SdkCall call("VexUtilStringListGetCount");
    const std::vector<std::string>* strings = requireList(call, list);
    return strings != nullptr ? static_cast<int32_t>(strings->size()) : 0;
}

char* VexUtilStringListGetString(VexStringList_pa list, int32_t position) {
    SdkCall call("VexUtilStringListGetString", position);
    const std::vector<std::string>* strings = requireList(call, list);
    if (strings == nullptr)
        return nullptr;
    if (position < 1 || static_cast<std::size_t>(position) > strings->size()) {
        call.error("there is no entry " + std::to_string(position) + " (the list has " +
                   std::to_string(strings->size()) + ")");
        return nullptr;
    }
    return call.host().bookkeeping().copyString((*strings)[static_cast<std::size_t>(position - 1)]);
}

void VexUtilStringListDealloc(VexStringList_pa* list) {
    SdkCall call("VexUtilStringListDealloc");
    if (list == nullptr) {
        call.error("no string list was given");
        return;
    }
    if (*list == nullptr)
        return;
    if (!call.host().bookkeeping().freeStringList(*list)) {
        call.error("the string list was not handed out by the host, or was freed already");
        return;
    }
    *list = nullptr;
}
