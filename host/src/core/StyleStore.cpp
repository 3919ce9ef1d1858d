#include "vexhost/StyleStore.h"

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>

#include "vexhost/Bookkeeping.h"
#include "vexhost/ExportSettings.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/HostErrors.h"
#include "vexhost/StateNotifier.h"

namespace vexhost {

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

// Where a value lives: in the store, or in a field of the active frame's 3D view.
enum class Binding {
    Stored,
    ViewPsi,
    ViewTheta,
    ViewAlpha,
    ViewPositionX,
    ViewPositionY,
    ViewPositionZ,
    ViewWidth,
    ViewFieldOfView,
    ViewPerspective,
    ViewOriginX,
    ViewOriginY,
    ViewOriginZ
};

using ValueType = StyleStore::ValueType;

// The tree. Every double must be finite and within its limits; integers within theirs.
struct Limits {
    double low, high;
    bool lowOpen, highOpen;
};

constexpr Limits AnyNumber = {-Infinity, Infinity, false, false};
constexpr Limits AboveZero = {0, Infinity, true, false};
constexpr Limits Percent = {0, 100, false, false};  // lighting, in percent of full strength
constexpr Limits AngleOfView = {0, 180, true, true};
constexpr Limits FramesPerSecond = {0, 1000, true, false};

struct Definition {
    std::array<const char*, 4> words;
    ValueType type;
    Binding binding;
    Limits limits;
    double defaultNumber;
    bool defaultBool;
};

using Words = std::array<const char*, 4>;

Definition number(Words words, Binding binding, double byDefault, Limits limits = AnyNumber) {
    return {words, ValueType::Double, binding, limits, byDefault, false};
}
Definition integer(Words words, double byDefault, double low, double high) {
    return {words, ValueType::Int, Binding::Stored, {low, high, false, false}, byDefault, false};
}
Definition flag(Words words, Binding binding, bool byDefault) {
    return {words, ValueType::Bool, binding, AnyNumber, 0, byDefault};
}
// Strings default to "".
Definition text(Words words) {
    return {words, ValueType::String, Binding::Stored, AnyNumber, 0, false};
}

const ExportSettings DefaultExport;

// In the order of docs/host.md. The export setup is in the host's enumerations (vxsdkbase.h).
const Definition Definitions[] = {
    number({"ThreeDView", "PSIAngle"}, Binding::ViewPsi, View3D::DefaultPsi),
    number({"ThreeDView", "ThetaAngle"}, Binding::ViewTheta, View3D::DefaultTheta),
    number({"ThreeDView", "AlphaAngle"}, Binding::ViewAlpha, View3D::DefaultAlpha),
    number({"ThreeDView", "ViewerPosition", "X"}, Binding::ViewPositionX, 0),
    number({"ThreeDView", "ViewerPosition", "Y"}, Binding::ViewPositionY, 0),
    number({"ThreeDView", "ViewerPosition", "Z"}, Binding::ViewPositionZ, 0),
    number({"ThreeDView", "ViewWidth"}, Binding::ViewWidth, View3D::DefaultWidth, AboveZero),
    number({"ThreeDView", "FieldOfView"}, Binding::ViewFieldOfView, View3D::DefaultFieldOfView,
           AngleOfView),
    flag({"ThreeDView", "DrawInPerspective"}, Binding::ViewPerspective, false),
    number({"ThreeDView", "RotateOrigin", "X"}, Binding::ViewOriginX, 0),
    number({"ThreeDView", "RotateOrigin", "Y"}, Binding::ViewOriginY, 0),
    number({"ThreeDView", "RotateOrigin", "Z"}, Binding::ViewOriginZ, 0),
    number({"GlobalThreeD", "LightSource", "Intensity"}, Binding::Stored, 75, Percent),
    number({"GlobalThreeD", "LightSource", "BackgroundLight"}, Binding::Stored, 25, Percent),
    flag({"ThreeDAxis", "FrameAxis", "Show"}, Binding::Stored, true),
    number({"StreamAttributes", "StreamTiming", "TimeAnchor"}, Binding::Stored, 0),
    number({"StreamAttributes", "StreamTiming", "DeltaTime"}, Binding::Stored, 1, AboveZero),
    flag({"StreamAttributes", "StreamTiming", "ShowMarkers"}, Binding::Stored, false),
    flag({"StreamAttributes", "StreamTiming", "ShowDashes"}, Binding::Stored, false),
    flag({"Interface", "UseDisplayLists"}, Binding::Stored, true),
    integer({"ExportSetup", "ExportFormat"}, DefaultExport.format, VexExportFormat_RasterMetafile,
            VexExportFormat_WMV),
    integer({"ExportSetup", "ExportRegion"}, DefaultExport.region, VexExportRegion_CurrentFrame,
            VexExportRegion_WorkArea),
    integer({"ExportSetup", "ImageWidth"}, DefaultExport.imageWidth, 1, 32766),
    number({"ExportSetup", "AnimationSpeed"}, Binding::Stored, DefaultExport.animationSpeed,
           FramesPerSecond),
    flag({"ExportSetup", "UseSuperSampleAntiAliasing"}, Binding::Stored,
         DefaultExport.useSuperSampling),
    integer({"ExportSetup", "SuperSampleFactor"}, DefaultExport.superSampleFactor, 2, 16),
    integer({"ExportSetup", "FlashImageType"}, DefaultExport.flashImageType,
            VexFlashImageType_Lossless, VexFlashImageType_Color256),
    integer({"ExportSetup", "FlashCompressionType"}, DefaultExport.flashCompressionType,
            VexFlashCompressionType_BestSpeed, VexFlashCompressionType_SmallestSize),
    text({"ExportSetup", "ExportFName"}),
};

constexpr int MaxDepth = 6;
constexpr std::size_t SlotCount = 128;  // a power of two, well above twice the paths

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool equalsIgnoringCase(const char* a, const char* b) {
    // Callers nearly always spell a path as the host does: the library compare settles that fast.
    if (std::strcmp(a, b) == 0)
        return true;
    for (; *a != '\0' && *b != '\0'; ++a, ++b) {
        if (lower(*a) != lower(*b))
            return false;
    }
    return *a == *b;
}

// A cheap key for the table: per word its length and its first, middle and last letters,
// lower-cased. Full words are compared afterwards, so a collision costs a probe, never a wrong
// match; hashing every letter would cost as much again as the comparison.
uint64_t hashPath(const char* const* words, int depth) {
    uint64_t h = static_cast<uint64_t>(depth);
    for (int w = 0; w < depth; ++w) {
        const char* word = words[w];
        const std::size_t length = std::strlen(word);
        h = h * 1000003u + length;
        if (length > 0) {
            h = h * 131u + static_cast<unsigned char>(lower(word[0]));
            h = h * 131u + static_cast<unsigned char>(lower(word[length / 2]));
            h = h * 131u + static_cast<unsigned char>(lower(word[length - 1]));
        }
    }
    return h ^ (h >> 29);
}

std::string describePath(const char* const* words, int depth) {
    std::string text = "(";
    for (int w = 0; w < depth; ++w) {
        if (w > 0)
            text += ", ";
        text += '"';
        text += words[w];
        text += '"';
    }
    return text + ")";
}

// A value handed to a set: from an SDK argument or a control call.
struct Incoming {
    ValueType type;
    double d = 0;
    int64_t i = 0;
    bool b = false;
    const char* s = nullptr;
};

// Largest magnitude at which every integer is a double: integer <-> double stays exact below it.
constexpr double ExactIntegerLimit = 9007199254740992.0;

}  // namespace

struct StyleStore::Entry {
    const Definition* definition;
    int depth;
    uint64_t key;
    double d;
    int64_t i;
    bool b;
    std::string s;
    bool refuseGets = false;
    bool refuseSets = false;

    void restoreDefault() {
        d = definition->defaultNumber;
        i = static_cast<int64_t>(definition->defaultNumber);
        b = definition->defaultBool;
        s.clear();
        refuseGets = refuseSets = false;
    }
};

namespace {

// The value of an entry as it stands (view-bound entries read the view).
struct Current {
    double d = 0;
    int64_t i = 0;
    bool b = false;
    const std::string* s = nullptr;
};

Current read(const StyleStore::Entry& entry, const View3D* view) {
    Current c;
    switch (entry.definition->binding) {
        case Binding::Stored:
            c.d = entry.d;
            c.i = entry.i;
            c.b = entry.b;
            c.s = &entry.s;
            break;
        case Binding::ViewPsi:
            c.d = view->psi();
            break;
        case Binding::ViewTheta:
            c.d = view->theta();
            break;
        case Binding::ViewAlpha:
            c.d = view->alpha();
            break;
        case Binding::ViewPositionX:
            c.d = view->position()[0];
            break;
        case Binding::ViewPositionY:
            c.d = view->position()[1];
            break;
        case Binding::ViewPositionZ:
            c.d = view->position()[2];
            break;
        case Binding::ViewWidth:
            c.d = view->width();
            break;
        case Binding::ViewFieldOfView:
            c.d = view->fieldOfView();
            break;
        case Binding::ViewPerspective:
            c.b = view->perspective();
            break;
        case Binding::ViewOriginX:
            c.d = view->rotateOrigin()[0];
            break;
        case Binding::ViewOriginY:
            c.d = view->rotateOrigin()[1];
            break;
        case Binding::ViewOriginZ:
            c.d = view->rotateOrigin()[2];
            break;
    }
    return c;
}

bool inRange(const Definition& definition, double v) {
    const Limits& limits = definition.limits;
    if (!std::isfinite(v))
        return false;
    if (limits.lowOpen ? !(v > limits.low) : !(v >= limits.low))
        return false;
    return limits.highOpen ? v < limits.high : v <= limits.high;
}

void writeDouble(StyleStore::Entry& entry, View3D* view, double v) {
    switch (entry.definition->binding) {
        case Binding::Stored:
            entry.d = v;
            break;
        case Binding::ViewPsi:
            view->setPsi(v);
            break;
        case Binding::ViewTheta:
            view->setTheta(v);
            break;
        case Binding::ViewAlpha:
            view->setAlpha(v);
            break;
        case Binding::ViewPositionX:
            view->setPositionComponent(0, v);
            break;
        case Binding::ViewPositionY:
            view->setPositionComponent(1, v);
            break;
        case Binding::ViewPositionZ:
            view->setPositionComponent(2, v);
            break;
        case Binding::ViewWidth:
            view->setWidth(v);
            break;
        case Binding::ViewFieldOfView:
            view->setFieldOfView(v);
            break;
        case Binding::ViewOriginX:
            view->setRotateOriginComponent(0, v);
            break;
        case Binding::ViewOriginY:
            view->setRotateOriginComponent(1, v);
            break;
        case Binding::ViewOriginZ:
            view->setRotateOriginComponent(2, v);
            break;
        case Binding::ViewPerspective:
            break;
    }
}

VexSetValueReturnCode_e store(StyleStore::Entry& entry, View3D* view, const Incoming& in) {
    const Definition& definition = *entry.definition;
    switch (definition.type) {
        case ValueType::Double: {
            double v;
            if (in.type == ValueType::Double)
                v = in.d;
            else if (in.type == ValueType::Int)
                v = static_cast<double>(in.i);
            else
                return VexSetValue_InvalidValue;
            if (!inRange(definition, v))
                return VexSetValue_InvalidValue;
            writeDouble(entry, view, v);
            return VexSetValue_Ok;
        }
        case ValueType::Int: {
            int64_t v;
            if (in.type == ValueType::Int) {
                v = in.i;
            } else if (in.type == ValueType::Double) {
                // Only a whole number is an integer; 2.5 is refused rather than guessed at.
                if (!std::isfinite(in.d) || std::trunc(in.d) != in.d ||
                    std::fabs(in.d) >= ExactIntegerLimit)
                    return VexSetValue_InvalidValue;
                v = static_cast<int64_t>(in.d);
            } else {
                return VexSetValue_InvalidValue;
            }
            if (!inRange(definition, static_cast<double>(v)))
                return VexSetValue_InvalidValue;
            entry.i = v;
            return VexSetValue_Ok;
        }
        case ValueType::Bool:
            if (in.type != ValueType::Bool)
                return VexSetValue_InvalidValue;
            if (definition.binding == Binding::ViewPerspective)
                view->setPerspective(in.b);
            else
                entry.b = in.b;
            return VexSetValue_Ok;
        case ValueType::String:
            if (in.type != ValueType::String || in.s == nullptr)
                return VexSetValue_InvalidValue;
            entry.s = in.s;
            return VexSetValue_Ok;
    }
    return VexSetValue_InvalidValue;
}

// How an argument list was malformed (a host error is recorded for each).
enum class ArgProblem { None, Path, Value };

struct ParsedArgs {
    const char* words[MaxDepth] = {};
    int depth = 0;
    const VexArg_s* value = nullptr;
};

bool isPathName(const char* name, int& index) {
    if ((name[0] != 'P' && name[0] != 'p') || name[1] < '1' || name[1] > '6' || name[2] != '\0')
        return false;
    index = name[1] - '1';
    return true;
}

ArgProblem parseArgs(Host& host, const char* function, const VexArg_s* args, int32_t count,
                     bool isSet, ParsedArgs& parsed) {
    if (count < 0 || (count > 0 && args == nullptr)) {
        host.errors().record(function, "the argument list is missing");
        return ArgProblem::Path;
    }
    for (int32_t n = 0; n < count; ++n) {
        const VexArg_s& arg = args[n];
        int index = 0;
        if (arg.name == nullptr) {
            host.errors().record(function, "argument " + std::to_string(n + 1) + " has no name");
            return ArgProblem::Path;
        }
        if (isPathName(arg.name, index)) {
            if (arg.type != VexArgType_String || arg.value.s == nullptr) {
                host.errors().record(function,
                                     std::string("the path word ") + arg.name + " is not a string");
                return ArgProblem::Path;
            }
            if (parsed.words[index] != nullptr) {
                host.errors().record(function,
                                     std::string("the path word ") + arg.name + " is given twice");
                return ArgProblem::Path;
            }
            parsed.words[index] = arg.value.s;
        } else if (equalsIgnoringCase(arg.name, VEXARG_VALUE)) {
            if (parsed.value != nullptr) {
                host.errors().record(function, "VALUE is given twice");
                return ArgProblem::Value;
            }
            parsed.value = &arg;
        } else {
            host.errors().record(function,
                                 std::string("unknown argument name \"") + arg.name + "\"");
            return ArgProblem::Path;
        }
    }
    while (parsed.depth < MaxDepth && parsed.words[parsed.depth] != nullptr)
        ++parsed.depth;
    for (int w = parsed.depth; w < MaxDepth; ++w) {
        if (parsed.words[w] != nullptr) {
            host.errors().record(function, "path word P" + std::to_string(w + 1) + " without P" +
                                               std::to_string(parsed.depth + 1));
            return ArgProblem::Path;
        }
    }
    if (parsed.depth == 0) {
        host.errors().record(function, "no path (P1) given");
        return ArgProblem::Path;
    }
    if (parsed.value == nullptr) {
        host.errors().record(function, "no VALUE given");
        return ArgProblem::Value;
    }
    const bool isPointer = parsed.value->type >= VexArgType_DoublePtr;
    if (parsed.value->type < VexArgType_String || parsed.value->type > VexArgType_StringPtr ||
        isPointer == isSet) {
        host.errors().record(function, isSet ? "VALUE must be a value, not a pointer"
                                             : "VALUE must be a pointer to receive the value");
        return ArgProblem::Value;
    }
    if (!isSet && parsed.value->value.dp == nullptr) {
        host.errors().record(function, "VALUE is a null pointer");
        return ArgProblem::Value;
    }
    return ArgProblem::None;
}

}  // namespace

StyleStore::StyleStore(Host& host) : host_(host), slots_(SlotCount, -1) {
    for (const Definition& definition : Definitions) {
        Entry entry{};
        entry.definition = &definition;
        while (entry.depth < 4 && definition.words[entry.depth] != nullptr)
            ++entry.depth;
        entry.key = hashPath(definition.words.data(), entry.depth);
        entry.restoreDefault();
        std::size_t slot = entry.key & (SlotCount - 1);
        while (slots_[slot] >= 0)
            slot = (slot + 1) & (SlotCount - 1);
        slots_[slot] = static_cast<int16_t>(entries_.size());
        entries_.push_back(std::move(entry));
    }
}

StyleStore::~StyleStore() = default;

int StyleStore::findEntry(const char* const* words, int depth) const {
    const uint64_t key = hashPath(words, depth);
    for (std::size_t slot = key & (SlotCount - 1); slots_[slot] >= 0;
         slot = (slot + 1) & (SlotCount - 1)) {
        const Entry& entry = entries_[static_cast<std::size_t>(slots_[slot])];
        if (entry.key != key || entry.depth != depth)
            continue;
        bool same = true;
        for (int w = 0; w < depth && same; ++w)
            same = equalsIgnoringCase(entry.definition->words[w], words[w]);
        if (same)
            return slots_[slot];
    }
    return -1;
}

int StyleStore::findEntry(const Path& path) const {
    if (path.empty() || path.size() > MaxDepth)
        return -1;
    const char* words[MaxDepth];
    for (std::size_t w = 0; w < path.size(); ++w)
        words[w] = path[w].c_str();
    return findEntry(words, static_cast<int>(path.size()));
}

int StyleStore::requireEntry(const char* function, const Path& path) const {
    const int found = findEntry(path);
    if (found < 0) {
        std::vector<const char*> words;
        for (const std::string& word : path)
            words.push_back(word.c_str());
        throw std::invalid_argument(std::string("StyleStore::") + function +
                                    "(): unknown style path " +
                                    describePath(words.data(), static_cast<int>(words.size())));
    }
    return found;
}

VexSetValueReturnCode_e StyleStore::sdkSet(const VexArg_s* args, int32_t count) {
    static const char* const Function = "VexUtilStyleSetLowLevelX";
    ParsedArgs parsed;
    switch (parseArgs(host_, Function, args, count, true, parsed)) {
        case ArgProblem::None:
            break;
        case ArgProblem::Path:
            return VexSetValue_InvalidCommandOption;
        case ArgProblem::Value:
            return VexSetValue_InvalidValue;
    }
    const int found = findEntry(parsed.words, parsed.depth);
    if (found < 0)
        return VexSetValue_InvalidCommandOption;
    Entry& entry = entries_[static_cast<std::size_t>(found)];
    if (entry.refuseSets)
        return VexSetValue_ContextError;
    View3D* view = nullptr;
    if (entry.definition->binding != Binding::Stored) {
        Frame* frame = host_.frames().active();
        if (frame == nullptr) {
            host_.errors().record(Function, "there is no frame for the 3D view value " +
                                                describePath(parsed.words, parsed.depth));
            return VexSetValue_ContextError;
        }
        view = &frame->view();
    }
    const VexArg_s& value = *parsed.value;
    Incoming in{ValueType::Double};
    switch (value.type) {
        case VexArgType_Double:
            in.d = value.value.d;
            break;
        case VexArgType_Int:
            in.type = ValueType::Int;
            in.i = value.value.i;
            break;
        case VexArgType_Bool:
            in.type = ValueType::Bool;
            in.b = value.value.b;
            break;
        default:
            in.type = ValueType::String;
            in.s = value.value.s;
            break;
    }
    const VexSetValueReturnCode_e rc = store(entry, view, in);
    if (rc == VexSetValue_Ok)
        host_.stateChanges().send(VexStateChange_Style);
    return rc;
}

VexGetValueReturnCode_e StyleStore::sdkGet(const VexArg_s* args, int32_t count) {
    static const char* const Function = "VexUtilStyleGetLowLevelX";
    ParsedArgs parsed;
    switch (parseArgs(host_, Function, args, count, false, parsed)) {
        case ArgProblem::None:
            break;
        case ArgProblem::Path:
            return VexGetValue_InvalidPath;
        case ArgProblem::Value:
            return VexGetValue_WrongType;
    }
    const int found = findEntry(parsed.words, parsed.depth);
    if (found < 0)
        return VexGetValue_InvalidPath;
    const Entry& entry = entries_[static_cast<std::size_t>(found)];
    if (entry.refuseGets)
        return VexGetValue_ContextError;
    const View3D* view = nullptr;
    if (entry.definition->binding != Binding::Stored) {
        const Frame* frame = host_.frames().active();
        if (frame == nullptr) {
            host_.errors().record(Function, "there is no frame for the 3D view value " +
                                                describePath(parsed.words, parsed.depth));
            return VexGetValue_ContextError;
        }
        view = &frame->view();
    }
    const Current current = read(entry, view);
    const ValueType type = entry.definition->type;
    const VexArg_s& value = *parsed.value;
    switch (value.type) {
        case VexArgType_DoublePtr:
            if (type == ValueType::Double)
                *value.value.dp = current.d;
            else if (type == ValueType::Int)
                *value.value.dp = static_cast<double>(current.i);
            else
                return VexGetValue_WrongType;
            return VexGetValue_Ok;
        case VexArgType_IntPtr:
            if (type == ValueType::Int)
                *value.value.ip = current.i;
            else if (type == ValueType::Double && std::fabs(current.d) < 9.2e18)
                *value.value.ip = std::llround(current.d);
            else
                return VexGetValue_WrongType;
            return VexGetValue_Ok;
        case VexArgType_BoolPtr:
            if (type != ValueType::Bool)
                return VexGetValue_WrongType;
            *value.value.bp = current.b;
            return VexGetValue_Ok;
        default: {
            if (type != ValueType::String)
                return VexGetValue_WrongType;
            char* copy = host_.bookkeeping().copyString(*current.s);
            if (copy == nullptr)
                return VexGetValue_ContextError;
            *value.value.sp = copy;
            return VexGetValue_Ok;
        }
    }
}

std::vector<StyleStore::Path> StyleStore::paths() const {
    std::vector<Path> all;
    for (const Entry& entry : entries_)
        all.emplace_back(entry.definition->words.begin(),
                         entry.definition->words.begin() + entry.depth);
    return all;
}

std::optional<StyleStore::ValueType> StyleStore::typeOf(const Path& path) const {
    const int found = findEntry(path);
    if (found < 0)
        return std::nullopt;
    return entries_[static_cast<std::size_t>(found)].definition->type;
}

namespace {

const View3D* viewFor(Host& host, const StyleStore::Entry& entry, const char* function) {
    if (entry.definition->binding == Binding::Stored)
        return nullptr;
    const Frame* frame = host.frames().active();
    if (frame == nullptr)
        throw std::logic_error(std::string("StyleStore::") + function +
                               "(): there is no frame for a 3D view value");
    return &frame->view();
}

std::invalid_argument wrongType(const char* function, const StyleStore::Entry& entry) {
    return std::invalid_argument(std::string("StyleStore::") + function + "(): the value at " +
                                 describePath(entry.definition->words.data(), entry.depth) +
                                 " is of another type");
}

}  // namespace

double StyleStore::getDouble(const Path& path) const {
    const Entry& entry = entries_[static_cast<std::size_t>(requireEntry("getDouble", path))];
    const Current c = read(entry, viewFor(host_, entry, "getDouble"));
    if (entry.definition->type == ValueType::Double)
        return c.d;
    if (entry.definition->type == ValueType::Int)
        return static_cast<double>(c.i);
    throw wrongType("getDouble", entry);
}

int64_t StyleStore::getInt(const Path& path) const {
    const Entry& entry = entries_[static_cast<std::size_t>(requireEntry("getInt", path))];
    const Current c = read(entry, viewFor(host_, entry, "getInt"));
    if (entry.definition->type == ValueType::Int)
        return c.i;
    if (entry.definition->type == ValueType::Double && std::fabs(c.d) < 9.2e18)
        return std::llround(c.d);
    throw wrongType("getInt", entry);
}

bool StyleStore::getBool(const Path& path) const {
    const Entry& entry = entries_[static_cast<std::size_t>(requireEntry("getBool", path))];
    const Current c = read(entry, viewFor(host_, entry, "getBool"));
    if (entry.definition->type != ValueType::Bool)
        throw wrongType("getBool", entry);
    return c.b;
}

std::string StyleStore::getString(const Path& path) const {
    const Entry& entry = entries_[static_cast<std::size_t>(requireEntry("getString", path))];
    if (entry.definition->type != ValueType::String)
        throw wrongType("getString", entry);
    return entry.s;
}

namespace {

VexSetValueReturnCode_e controlSet(Host& host, StyleStore::Entry* entry, const Incoming& in,
                                   const char* function) {
    if (entry == nullptr)
        return VexSetValue_InvalidCommandOption;
    View3D* view = nullptr;
    if (entry->definition->binding != Binding::Stored) {
        Frame* frame = host.frames().active();
        if (frame == nullptr)
            throw std::logic_error(std::string("StyleStore::") + function +
                                   "(): there is no frame for a 3D view value");
        view = &frame->view();
    }
    return store(*entry, view, in);
}

}  // namespace

VexSetValueReturnCode_e StyleStore::setDouble(const Path& path, double value) {
    const int found = findEntry(path);
    Incoming in{ValueType::Double};
    in.d = value;
    return controlSet(host_, found < 0 ? nullptr : &entries_[static_cast<std::size_t>(found)], in,
                      "setDouble");
}

VexSetValueReturnCode_e StyleStore::setInt(const Path& path, int64_t value) {
    const int found = findEntry(path);
    Incoming in{ValueType::Int};
    in.i = value;
    return controlSet(host_, found < 0 ? nullptr : &entries_[static_cast<std::size_t>(found)], in,
                      "setInt");
}

VexSetValueReturnCode_e StyleStore::setBool(const Path& path, bool value) {
    const int found = findEntry(path);
    Incoming in{ValueType::Bool};
    in.b = value;
    return controlSet(host_, found < 0 ? nullptr : &entries_[static_cast<std::size_t>(found)], in,
                      "setBool");
}

VexSetValueReturnCode_e StyleStore::setString(const Path& path, const std::string& value) {
    const int found = findEntry(path);
    Incoming in{ValueType::String};
    in.s = value.c_str();
    return controlSet(host_, found < 0 ? nullptr : &entries_[static_cast<std::size_t>(found)], in,
                      "setString");
}

void StyleStore::refuse(const Path& path, bool gets, bool sets) {
    Entry& entry = entries_[static_cast<std::size_t>(requireEntry("refuse", path))];
    entry.refuseGets = gets;
    entry.refuseSets = sets;
}

void StyleStore::clearRefusals() {
    for (Entry& entry : entries_)
        entry.refuseGets = entry.refuseSets = false;
}

void StyleStore::reset() {
    for (Entry& entry : entries_)
        entry.restoreDefault();
}

}  // namespace vexhost
