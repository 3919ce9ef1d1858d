#include "vexhost/StyleStore.h"

#include <stdexcept>

#include "core/StyleDefinition.h"
#include "core/StyleValue.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/ExportSettings.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/HostErrors.h"
#include "vexhost/StateNotifier.h"

namespace vexhost {

namespace {

using ValueType = StyleStore::ValueType;
constexpr int MaxDepth = StyleDefinition::MaxDepth;

// "(\"ThreeDView\", \"PSIAngle\")", for messages.
template <typename Words>
std::string describePath(const Words& words, std::size_t depth) {
    std::string text = "(";
    for (std::size_t w = 0; w < depth; ++w) {
        if (w > 0)
            text += ", ";
        text += '"';
        text += words[w];
        text += '"';
    }
    return text + ")";
}

StyleValue argumentValue(const VexArg_s& value) {
    StyleValue in{ValueType::String};
    switch (value.type) {
        case VexArgType_Double:
            in.type = ValueType::Double;
            in.number = value.value.d;
            break;
        case VexArgType_Int:
            in.type = ValueType::Int;
            in.whole = value.value.i;
            break;
        case VexArgType_Bool:
            in.type = ValueType::Bool;
            in.flag = value.value.b;
            break;
        default:
            in.text = value.value.s;
            break;
    }
    return in;
}

}  // namespace

struct StyleStore::Entry {
    const StyleDefinition* definition = nullptr;
    double d = 0;
    int64_t i = 0;
    bool b = false;
    std::string s;
    bool refuseGets = false;
    bool refuseSets = false;

    void restoreDefault() {
        d = definition->defaultNumber;
        i = static_cast<int64_t>(definition->defaultNumber);
        b = definition->defaultBool;
        s = definition->defaultText;
        refuseGets = refuseSets = false;
    }

    // The value as it stands, a "ThreeDView" one read from the view; a string's text is `s`.
    StyleValue read(const View3D* view) const {
        const StyleDefinition::ViewBinding& binding = definition->view;
        StyleValue value{definition->type};
        if (binding.readNumber != nullptr) {
            value.number = binding.readNumber(*view);
        } else if (binding.readFlag != nullptr) {
            value.flag = binding.readFlag(*view);
        } else {
            value.number = d;
            value.whole = i;
            value.flag = b;
        }
        return value;
    }

    VexSetValueReturnCode_e write(View3D* view, const StyleValue& in) {
        const StyleDefinition::ViewBinding& binding = definition->view;
        switch (definition->type) {
            case ValueType::Double: {
                const std::optional<double> v = in.asDouble();
                if (!v || !definition->range.contains(*v))
                    return VexSetValue_InvalidValue;
                if (binding.writeNumber != nullptr)
                    binding.writeNumber(*view, *v);
                else
                    d = *v;
                return VexSetValue_Ok;
            }
            case ValueType::Int: {
                const std::optional<int64_t> v = in.asWholeInt();
                if (!v || !definition->range.contains(static_cast<double>(*v)))
                    return VexSetValue_InvalidValue;
                i = *v;
                return VexSetValue_Ok;
            }
            case ValueType::Bool:
                if (in.type != ValueType::Bool)
                    return VexSetValue_InvalidValue;
                if (binding.writeFlag != nullptr)
                    binding.writeFlag(*view, in.flag);
                else
                    b = in.flag;
                return VexSetValue_Ok;
            case ValueType::String:
                if (in.type != ValueType::String || in.text == nullptr)
                    return VexSetValue_InvalidValue;
                s = in.text;
                return VexSetValue_Ok;
        }
        return VexSetValue_InvalidValue;
    }
};

namespace {

// The active frame's view, or nullptr without frames.
View3D* activeView(FrameStack& frames) {
    Frame* frame = frames.active();
    return frame != nullptr ? &frame->view() : nullptr;
}

// Sets `view` to the view a "ThreeDView" entry reads and writes (and leaves it for a stored one);
// false, with a host error under the X-call's name, without frames.
bool sdkView(FrameStack& frames, HostErrors& errors, const char* function,
             const StyleStore::Entry& entry, const char* const* words, int depth, View3D*& view) {
    if (entry.definition->isStored())
        return true;
    view = activeView(frames);
    if (view == nullptr)
        errors.record(function, "there is no frame for the 3D view value " +
                                    describePath(words, static_cast<std::size_t>(depth)));
    return view != nullptr;
}

// The view a "ThreeDView" entry reads and writes (nullptr for a stored one); std::logic_error
// without frames.
View3D* controlView(FrameStack& frames, const char* function, const StyleStore::Entry& entry) {
    if (entry.definition->isStored())
        return nullptr;
    View3D* view = activeView(frames);
    if (view == nullptr)
        throw std::logic_error(std::string("StyleStore::") + function +
                               "(): there is no frame for a 3D view value");
    return view;
}

std::invalid_argument wrongType(const char* function, const StyleStore::Entry& entry) {
    return std::invalid_argument(
        std::string("StyleStore::") + function + "(): the value at " +
        describePath(entry.definition->words, static_cast<std::size_t>(entry.definition->depth)) +
        " is of another type");
}

}  // namespace

StyleStore::StyleStore(HostErrors& errors, FrameStack& frames, Bookkeeping& memory)
    : errors_(errors), frames_(frames), memory_(memory) {
    const std::vector<StyleDefinition>& definitions = StyleDefinition::all();
    entries_.reserve(definitions.size());
    shapes_.reserve(definitions.size());
    for (const StyleDefinition& definition : definitions) {
        shapes_.push_back(definition.shape());
        Entry entry;
        entry.definition = &definition;
        entry.restoreDefault();
        entries_.push_back(std::move(entry));
    }
}

StyleStore::~StyleStore() = default;

int StyleStore::find(const std::string_view* words, int depth) const {
    const uint32_t shape = StyleDefinition::shapeOf(words, depth);
    for (std::size_t n = 0; n < shapes_.size(); ++n) {
        if (shapes_[n] == shape && entries_[n].definition->matches(words, depth))
            return static_cast<int>(n);
    }
    return -1;
}

int StyleStore::find(const char* const* words, int depth) const {
    if (depth > MaxDepth)
        return -1;
    std::string_view views[MaxDepth];
    for (int w = 0; w < depth; ++w)
        views[w] = words[w];
    return find(views, depth);
}

int StyleStore::find(const Path& path) const {
    if (path.size() > MaxDepth)
        return -1;
    std::string_view views[MaxDepth];
    for (std::size_t w = 0; w < path.size(); ++w)
        views[w] = path[w];
    return find(views, static_cast<int>(path.size()));
}

int StyleStore::require(const char* function, const Path& path) const {
    const int found = find(path);
    if (found < 0)
        throw std::invalid_argument(std::string("StyleStore::") + function +
                                    "(): unknown style path " + describePath(path, path.size()));
    return found;
}

VexSetValueReturnCode_e StyleStore::sdkSet(const char* const* words, int depth,
                                           const VexArg_s& value) {
    const int found = find(words, depth);
    if (found < 0)
        return VexSetValue_InvalidCommandOption;
    Entry& entry = entries_[static_cast<std::size_t>(found)];
    if (entry.refuseSets)
        return VexSetValue_ContextError;
    View3D* view = nullptr;
    if (!sdkView(frames_, errors_, "VexUtilStyleSetLowLevelX", entry, words, depth, view))
        return VexSetValue_ContextError;
    return entry.write(view, argumentValue(value));
}

VexGetValueReturnCode_e StyleStore::sdkGet(const char* const* words, int depth,
                                           const VexArg_s& value) {
    const int found = find(words, depth);
    if (found < 0)
        return VexGetValue_InvalidPath;
    const Entry& entry = entries_[static_cast<std::size_t>(found)];
    if (entry.refuseGets)
        return VexGetValue_ContextError;
    View3D* view = nullptr;
    if (!sdkView(frames_, errors_, "VexUtilStyleGetLowLevelX", entry, words, depth, view))
        return VexGetValue_ContextError;
    const StyleValue current = entry.read(view);
    switch (value.type) {
        case VexArgType_DoublePtr: {
            const std::optional<double> v = current.asDouble();
            if (!v)
                return VexGetValue_WrongType;
            *value.value.dp = *v;
            return VexGetValue_Ok;
        }
        case VexArgType_IntPtr: {
            const std::optional<int64_t> v = current.asNearestInt();
            if (!v)
                return VexGetValue_WrongType;
            *value.value.ip = *v;
            return VexGetValue_Ok;
        }
        case VexArgType_BoolPtr:
            if (current.type != ValueType::Bool)
                return VexGetValue_WrongType;
            *value.value.bp = current.flag;
            return VexGetValue_Ok;
        default: {
            if (current.type != ValueType::String)
                return VexGetValue_WrongType;
            char* copy = memory_.copyString(entry.s);
            if (copy == nullptr)
                return VexGetValue_ContextError;
            *value.value.sp = copy;
            return VexGetValue_Ok;
        }
    }
}

std::vector<StyleStore::Path> StyleStore::paths() const {
    std::vector<Path> all;
    for (const Entry& entry : entries_) {
        const StyleDefinition& definition = *entry.definition;
        all.emplace_back(definition.words.begin(), definition.words.begin() + definition.depth);
    }
    return all;
}

std::optional<StyleStore::ValueType> StyleStore::typeOf(const Path& path) const {
    const int found = find(path);
    if (found < 0)
        return std::nullopt;
    return entries_[static_cast<std::size_t>(found)].definition->type;
}

double StyleStore::getDouble(const Path& path) const {
    const Entry& entry = entries_[static_cast<std::size_t>(require("getDouble", path))];
    if (const std::optional<double> v =
            entry.read(controlView(frames_, "getDouble", entry)).asDouble())
        return *v;
    throw wrongType("getDouble", entry);
}

int64_t StyleStore::getInt(const Path& path) const {
    const Entry& entry = entries_[static_cast<std::size_t>(require("getInt", path))];
    if (const std::optional<int64_t> v =
            entry.read(controlView(frames_, "getInt", entry)).asNearestInt())
        return *v;
    throw wrongType("getInt", entry);
}

bool StyleStore::getBool(const Path& path) const {
    const Entry& entry = entries_[static_cast<std::size_t>(require("getBool", path))];
    const StyleValue current = entry.read(controlView(frames_, "getBool", entry));
    if (current.type != ValueType::Bool)
        throw wrongType("getBool", entry);
    return current.flag;
}

std::string StyleStore::getString(const Path& path) const {
    const Entry& entry = entries_[static_cast<std::size_t>(require("getString", path))];
    if (entry.definition->type != ValueType::String)
        throw wrongType("getString", entry);
    return entry.s;
}

VexSetValueReturnCode_e StyleStore::controlSet(const char* function, const Path& path,
                                               const StyleValue& value) {
    const int found = find(path);
    if (found < 0)
        return VexSetValue_InvalidCommandOption;
    Entry& entry = entries_[static_cast<std::size_t>(found)];
    return entry.write(controlView(frames_, function, entry), value);
}

VexSetValueReturnCode_e StyleStore::setDouble(const Path& path, double value) {
    StyleValue in{ValueType::Double};
    in.number = value;
    return controlSet("setDouble", path, in);
}

VexSetValueReturnCode_e StyleStore::setInt(const Path& path, int64_t value) {
    StyleValue in{ValueType::Int};
    in.whole = value;
    return controlSet("setInt", path, in);
}

VexSetValueReturnCode_e StyleStore::setBool(const Path& path, bool value) {
    StyleValue in{ValueType::Bool};
    in.flag = value;
    return controlSet("setBool", path, in);
}

VexSetValueReturnCode_e StyleStore::setString(const Path& path, const std::string& value) {
    StyleValue in{ValueType::String};
    in.text = value.c_str();
    return controlSet("setString", path, in);
}

void StyleStore::refuse(const Path& path, bool gets, bool sets) {
    Entry& entry = entries_[static_cast<std::size_t>(require("refuse", path))];
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
