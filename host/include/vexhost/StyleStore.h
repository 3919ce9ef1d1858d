// The host's style values: a fixed tree of typed values addressed by macro-name paths
// ("GlobalThreeD", "LightSource", "Intensity"), matched without regard to case. Every path and its
// default is listed in docs/host.md.
//
// The "ThreeDView" paths are not stored here: they read and write the active frame's View3D, and
// fail with a context error (and a host error) while there is no frame. Setting an angle changes
// that angle only, setting a viewer position component changes P only.
//
// Types: an integer value accepts and answers doubles too (a double must be a whole number in
// range to be set; an integer read as a double is exact, a double read as an integer is rounded to
// the nearest); a bool is only a bool and a string only a string. Doubles must be finite, and each
// value has its range; a value outside it is VexSetValue_InvalidValue and nothing changes.
//
// The SDK side takes the path words and the VALUE argument of an X-call whose argument list the
// SDK layer has already checked, and answers with the SDK's return codes: an unknown path is
// VexSetValue_InvalidCommandOption / VexGetValue_InvalidPath, a wrong value type
// VexSetValue_InvalidValue / VexGetValue_WrongType, a path made to refuse VexSetValue_ContextError
// / VexGetValue_ContextError. A string is answered as a host string (Bookkeeping). A set or get
// makes no heap allocation (except to copy a string value).
//
// The control side neither checks the lock nor honours refusals. Neither side tells the state
// change listeners: the X-call and the macro player do.
#ifndef VEXHOST_STYLESTORE_H
#define VEXHOST_STYLESTORE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vxsdkbase.h"

namespace vexhost {

class Bookkeeping;
class FrameStack;
class HostErrors;
struct StyleValue;

class StyleStore {
public:
    enum class ValueType { Double, Int, Bool, String };
    using Path = std::vector<std::string>;

    // Host errors go to `errors`, the "ThreeDView" values are those of the active frame of
    // `frames`, and strings are handed out as host strings of `memory`.
    StyleStore(HostErrors& errors, FrameStack& frames, Bookkeeping& memory);
    ~StyleStore();
    StyleStore(const StyleStore&) = delete;
    StyleStore& operator=(const StyleStore&) = delete;

    // ---- SDK side ----
    // VexUtilStyleSetLowLevelX and VexUtilStyleGetLowLevelX: `depth` path words (at least one),
    // and VALUE (a value to set, a non-null pointer to receive the value).
    VexSetValueReturnCode_e sdkSet(const char* const* words, int depth, const VexArg_s& value);
    VexGetValueReturnCode_e sdkGet(const char* const* words, int depth, const VexArg_s& value);

    // ---- Control side ----
    // Every path of the tree, in the order of docs/host.md.
    std::vector<Path> paths() const;
    std::optional<ValueType> typeOf(const Path& path) const;
    // std::invalid_argument naming the path when it is unknown or of another type (integer and
    // double interconvert as for the SDK); std::logic_error for a "ThreeDView" path without frames.
    double getDouble(const Path& path) const;
    int64_t getInt(const Path& path) const;
    bool getBool(const Path& path) const;
    std::string getString(const Path& path) const;
    // The SDK's set rules and return codes, without lock or refusal.
    VexSetValueReturnCode_e setDouble(const Path& path, double value);
    VexSetValueReturnCode_e setInt(const Path& path, int64_t value);
    VexSetValueReturnCode_e setBool(const Path& path, bool value);
    VexSetValueReturnCode_e setString(const Path& path, const std::string& value);

    // Makes the path refuse SDK gets and/or sets from now on; std::invalid_argument when unknown.
    void refuse(const Path& path, bool gets, bool sets);
    void clearRefusals();

    // Every stored value back to its default, no refusals.
    void reset();

    struct Entry;  // one path of the tree (StyleStore.cpp)

private:
    // The entry's index, -1 when unknown. Entries are found by a scan, shapes first
    // (StyleDefinition::shapeOf): the tree is small, and the scan allocates nothing.
    int find(const std::string_view* words, int depth) const;
    int find(const char* const* words, int depth) const;
    int find(const Path& path) const;
    // The index; std::invalid_argument naming the path when unknown.
    int require(const char* function, const Path& path) const;

    VexSetValueReturnCode_e controlSet(const char* function, const Path& path,
                                       const StyleValue& value);

    HostErrors& errors_;
    FrameStack& frames_;
    Bookkeeping& memory_;
    std::vector<Entry> entries_;    // in the order of the definitions (StyleDefinition)
    std::vector<uint32_t> shapes_;  // of each entry's path, side by side for the scan
};

}  // namespace vexhost

#endif
