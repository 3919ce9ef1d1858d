/*
 * Vexplot SDK toolbox: StyleValue, one host style value addressed by its macro-name path.
 *
 * Built from up to four path words ("ThreeDView", "ViewerPosition"); each get or set may add up to
 * two more leaf words ("X"), so one object serves a whole branch of the style tree. The result
 * codes are the host's: a refused or unknown path is reported, never thrown.
 */
#ifndef VXTOOLBOX_STYLEVALUE_H
#define VXTOOLBOX_STYLEVALUE_H

#include <cstdint>
#include <string>

#include "vxsdkbase.h"
#include "vxtoolbox/ArgList.h"

namespace vexplot {
namespace toolbox {

class StyleValue {
public:
    explicit StyleValue(const char* p1, const char* p2 = nullptr, const char* p3 = nullptr,
                        const char* p4 = nullptr) {
        for (const char* p : {p1, p2, p3, p4}) {
            if (p == nullptr)
                break;
            path_[depth_++] = p;
        }
    }

    VexSetValueReturnCode_e set(double value, const char* sub1 = nullptr,
                                const char* sub2 = nullptr) const {
        ArgList args = pathArgs(sub1, sub2);
        args.appendDouble(VEXARG_VALUE, value);
        return VexUtilStyleSetLowLevelX(args.data(), args.size());
    }
    VexSetValueReturnCode_e set(bool value, const char* sub1 = nullptr,
                                const char* sub2 = nullptr) const {
        ArgList args = pathArgs(sub1, sub2);
        args.appendBool(VEXARG_VALUE, value);
        return VexUtilStyleSetLowLevelX(args.data(), args.size());
    }
    VexSetValueReturnCode_e set(int64_t value, const char* sub1 = nullptr,
                                const char* sub2 = nullptr) const {
        ArgList args = pathArgs(sub1, sub2);
        args.appendInt(VEXARG_VALUE, value);
        return VexUtilStyleSetLowLevelX(args.data(), args.size());
    }
    VexSetValueReturnCode_e set(int32_t value, const char* sub1 = nullptr,
                                const char* sub2 = nullptr) const {
        return set(static_cast<int64_t>(value), sub1, sub2);
    }
    VexSetValueReturnCode_e set(const char* value, const char* sub1 = nullptr,
                                const char* sub2 = nullptr) const {
        ArgList args = pathArgs(sub1, sub2);
        args.appendString(VEXARG_VALUE, value);
        return VexUtilStyleSetLowLevelX(args.data(), args.size());
    }

    /* On failure the value is left as it was. */
    VexGetValueReturnCode_e get(double& value, const char* sub1 = nullptr,
                                const char* sub2 = nullptr) const {
        ArgList args = pathArgs(sub1, sub2);
        args.appendDoublePtr(VEXARG_VALUE, &value);
        return VexUtilStyleGetLowLevelX(args.data(), args.size());
    }
    VexGetValueReturnCode_e get(bool& value, const char* sub1 = nullptr,
                                const char* sub2 = nullptr) const {
        ArgList args = pathArgs(sub1, sub2);
        args.appendBoolPtr(VEXARG_VALUE, &value);
        return VexUtilStyleGetLowLevelX(args.data(), args.size());
    }
    VexGetValueReturnCode_e get(int64_t& value, const char* sub1 = nullptr,
                                const char* sub2 = nullptr) const {
        ArgList args = pathArgs(sub1, sub2);
        args.appendIntPtr(VEXARG_VALUE, &value);
        return VexUtilStyleGetLowLevelX(args.data(), args.size());
    }
    VexGetValueReturnCode_e get(int32_t& value, const char* sub1 = nullptr,
                                const char* sub2 = nullptr) const {
        int64_t wide = value;
        VexGetValueReturnCode_e rc = get(wide, sub1, sub2);
        if (rc == VexGetValue_Ok)
            value = static_cast<int32_t>(wide);
        return rc;
    }
    VexGetValueReturnCode_e get(std::string& value, const char* sub1 = nullptr,
                                const char* sub2 = nullptr) const {
        ArgList args = pathArgs(sub1, sub2);
        char* hostString = nullptr;
        args.appendStringPtr(VEXARG_VALUE, &hostString);
        VexGetValueReturnCode_e rc = VexUtilStyleGetLowLevelX(args.data(), args.size());
        if (hostString != nullptr) {
            if (rc == VexGetValue_Ok)
                value = hostString;
            VexUtilStringDealloc(&hostString);
        }
        return rc;
    }

private:
    ArgList pathArgs(const char* sub1, const char* sub2) const {
        static const char* const names[] = {VEXARG_P1, VEXARG_P2, VEXARG_P3,
                                            VEXARG_P4, VEXARG_P5, VEXARG_P6};
        ArgList args;
        int i = 0;
        for (; i < depth_; ++i)
            args.appendString(names[i], path_[i].c_str());
        if (sub1 != nullptr)
            args.appendString(names[i++], sub1);
        if (sub2 != nullptr)
            args.appendString(names[i++], sub2);
        return args;
    }

    std::string path_[4];
    int depth_ = 0;
};

} // namespace toolbox
} // namespace vexplot

#endif
