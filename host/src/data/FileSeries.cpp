#include "data/FileSeries.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <system_error>

#include "data/DataFormat.h"
#include "data/PvdIndex.h"
#include "vexhost/DataFileError.h"

namespace vexhost {
namespace {

namespace fs = std::filesystem;

DataFileError cannotRead(const std::string& path, const std::string& what) {
    return DataFileError("Cannot read \"" + path + "\": " + what);
}

std::string knownExtensions() {
    std::string list;
    for (const DataFormat& format : DataFormat::all())
        list += (list.empty() ? "" : " ") + std::string(format.extension);
    return list;
}

std::string stem(const std::string& path) {
    return fs::path(path).stem().string();
}

// A name for a series from its pattern's fixed part: "flow_" of "flow_*.vtu" gives "flow".
std::string seriesName(const std::string& prefix, const std::string& suffix) {
    std::string name = prefix;
    while (!name.empty() && std::string("_-. ").find(name.back()) != std::string::npos)
        name.pop_back();
    return name.empty() ? stem(suffix) : name;
}

void requireFile(const std::string& path, const std::string& shown) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status))
        throw cannotRead(shown, "no such file.");
    if (fs::is_directory(status))
        throw cannotRead(shown, "it is a folder, not a file.");
}

FileSeries numberedSeries(const std::string& path) {
    const fs::path pattern(path);
    const std::string name = pattern.filename().string();
    const std::size_t star = name.find('*');
    if (path.find('*') < path.size() - name.size() || name.find('*', star + 1) != std::string::npos)
        throw cannotRead(path,
                         "a numbered series takes one '*', in the file name, where the "
                         "number stands.");
    const std::string prefix = name.substr(0, star);
    const std::string suffix = name.substr(star + 1);
    const DataFormat* format = DataFormat::find(suffix);
    if (format == nullptr || format->kind != DataFormat::Kind::File)
        throw DataFileError(FileSeries::unknownExtension(path));

    const fs::path folder = pattern.has_parent_path() ? pattern.parent_path() : fs::path(".");
    std::error_code error;
    fs::directory_iterator entries(folder, error);
    if (error)
        throw cannotRead(path, "cannot list the folder \"" + folder.string() + "\".");
    // By number, then by name (flow_1 and flow_01 are both kept, in that order).
    std::map<std::pair<double, std::string>, std::string> found;
    for (const fs::directory_entry& entry : entries) {
        const std::string file = entry.path().filename().string();
        if (file.size() <= prefix.size() + suffix.size() ||
            file.compare(0, prefix.size(), prefix) ||
            file.compare(file.size() - suffix.size(), suffix.size(), suffix))
            continue;
        const std::string digits =
            file.substr(prefix.size(), file.size() - prefix.size() - suffix.size());
        if (digits.size() > 15 || !std::all_of(digits.begin(), digits.end(),
                                               [](unsigned char c) { return std::isdigit(c); }))
            continue;
        std::error_code statusError;
        if (!fs::is_regular_file(entry.status(statusError)))
            continue;
        found[{std::stod(digits), file}] = entry.path().string();
    }
    if (found.empty())
        throw cannotRead(path, "no file matches it.");
    FileSeries series;
    series.baseName = seriesName(prefix, suffix);
    series.isSeries = true;
    for (const auto& [key, file] : found) {
        FileSeries::Step step;
        step.time = key.first;
        step.files.push_back(file);
        series.steps.push_back(std::move(step));
    }
    return series;
}

FileSeries collection(const std::string& path) {
    const PvdIndex index = PvdIndex::read(path, path);
    const fs::path folder = fs::path(path).parent_path();
    // Steps by time, parts by number; entries of equal time and part keep the file's order.
    std::map<double, std::multimap<int, std::string>> byTime;
    for (const PvdIndex::Entry& entry : index.entries) {
        const fs::path file =
            fs::path(entry.file).is_absolute() ? fs::path(entry.file) : folder / entry.file;
        std::error_code error;
        if (!fs::is_regular_file(file, error))
            throw cannotRead(path, "it names \"" + entry.file + "\", which does not exist.");
        const DataFormat* format = DataFormat::find(entry.file);
        if (format == nullptr || format->kind != DataFormat::Kind::File)
            throw cannotRead(path, "it names \"" + entry.file +
                                       "\", which is not a data file read here (known: " +
                                       knownExtensions() + ").");
        byTime[entry.time].emplace(entry.part, file.string());
    }
    FileSeries series;
    series.baseName = stem(path);
    series.isSeries = true;
    for (const auto& [time, parts] : byTime) {
        FileSeries::Step step;
        step.time = time;
        step.timeFromIndex = true;
        for (const auto& part : parts)
            step.files.push_back(part.second);
        series.steps.push_back(std::move(step));
    }
    return series;
}

}  // namespace

std::string FileSeries::unknownExtension(const std::string& name) {
    const std::string extension = fs::path(name).extension().string();
    if (extension.empty())
        return "Cannot read \"" + name +
               "\": it has no extension to tell its format (known: " + knownExtensions() + ").";
    return "Cannot read \"" + name + "\": \"" + extension +
           "\" is not the extension of a data file read here (known: " + knownExtensions() + ").";
}

FileSeries FileSeries::resolve(const std::string& path) {
    if (path.find('*') != std::string::npos)
        return numberedSeries(path);
    requireFile(path, path);
    const DataFormat* format = DataFormat::find(path);
    if (format == nullptr)
        throw DataFileError(unknownExtension(path));
    if (format->kind == DataFormat::Kind::Collection)
        return collection(path);
    FileSeries series;
    series.baseName = stem(path);
    series.steps.push_back(Step{0, false, {path}});
    return series;
}

}  // namespace vexhost
