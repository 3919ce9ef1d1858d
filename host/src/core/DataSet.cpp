#include "vexhost/DataSet.h"

#include <algorithm>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>

#include "vexhost/StateNotifier.h"

namespace vexhost {

int32_t DataSet::addZone(Zone zone) {
    zones_.push_back(std::move(zone));
    changed();
    stateChanges_.send(VexStateChange_ZonesAdded);
    return zoneCount();
}

void DataSet::addZones(std::vector<Zone> zones) {
    if (zones.empty())
        return;
    for (Zone& zone : zones)
        zones_.push_back(std::move(zone));
    changed();
    stateChanges_.send(VexStateChange_ZonesAdded);
}

void DataSet::addStreamtrace(std::shared_ptr<const Streamtrace> streamtrace) {
    if (streamtrace == nullptr)
        throw std::invalid_argument("DataSet::addStreamtrace(): no streamtrace");
    streamtraces_.push_back(std::move(streamtrace));
    changed();
}

void DataSet::clear() {
    reset();
    stateChanges_.send(VexStateChange_DataSetReset);
}

const Zone& DataSet::zone(int32_t number) const {
    if (!isValidZone(number))
        throw std::out_of_range("DataSet::zone(): zone " + std::to_string(number) + " of " +
                                std::to_string(zoneCount()));
    return zones_[static_cast<std::size_t>(number - 1)];
}

void DataSet::setZoneEnabled(int32_t number, bool enabled) {
    if (!isValidZone(number))
        throw std::out_of_range("DataSet::setZoneEnabled(): zone " + std::to_string(number) +
                                " of " + std::to_string(zoneCount()));
    zones_[static_cast<std::size_t>(number - 1)].enabled = enabled;
}

std::vector<int32_t> DataSet::enabledZones() const {
    std::vector<int32_t> numbers;
    for (int32_t n = 1; n <= zoneCount(); ++n) {
        if (zones_[static_cast<std::size_t>(n - 1)].enabled)
            numbers.push_back(n);
    }
    return numbers;
}

std::vector<int32_t> DataSet::zonesShownAt(double time) const {
    std::vector<int32_t> shown;
    std::map<int32_t, int32_t> latestOfStrand;  // strand -> zone number
    for (int32_t n = 1; n <= zoneCount(); ++n) {
        const Zone& zone = zones_[static_cast<std::size_t>(n - 1)];
        if (!zone.enabled)
            continue;
        if (zone.strandId == 0) {
            shown.push_back(n);
            continue;
        }
        if (zone.solutionTime > time)
            continue;
        const auto it = latestOfStrand.find(zone.strandId);
        if (it == latestOfStrand.end() ||
            zone.solutionTime > zones_[static_cast<std::size_t>(it->second - 1)].solutionTime)
            latestOfStrand[zone.strandId] = n;
    }
    for (const auto& strand : latestOfStrand)
        shown.push_back(strand.second);
    std::sort(shown.begin(), shown.end());
    return shown;
}

const DataSet::Extent& DataSet::extent() const {
    if (extentValid_)
        return extent_;
    constexpr float Huge = std::numeric_limits<float>::max();
    Extent e;
    float sMin = Huge, sMax = -Huge;
    std::array<float, 3> bMin = {Huge, Huge, Huge}, bMax = {-Huge, -Huge, -Huge};
    auto includePoints = [&](const std::vector<float>& xyz) {
        for (std::size_t i = 0; i + 2 < xyz.size(); i += 3) {
            for (int a = 0; a < 3; ++a) {
                bMin[a] = std::min(bMin[a], xyz[i + a]);
                bMax[a] = std::max(bMax[a], xyz[i + a]);
            }
        }
    };
    for (const Zone& zone : zones_) {
        if (zone.geometry == nullptr)
            continue;
        includePoints(zone.geometry->positions);
        for (float s : zone.geometry->scalars) {
            sMin = std::min(sMin, s);
            sMax = std::max(sMax, s);
        }
    }
    for (const auto& trace : streamtraces_)
        includePoints(trace->points);
    if (sMin <= sMax) {
        e.scalarMin = sMin;
        e.scalarMax = sMax;
    }
    if (bMin[0] <= bMax[0]) {
        e.boundsMin = bMin;
        e.boundsMax = bMax;
    }
    extent_ = e;
    extentValid_ = true;
    return extent_;
}

void DataSet::changed() {
    extentValid_ = false;
}

void DataSet::setColouring(Colouring colouring) {
    colouring_ = std::move(colouring);
}

void DataSet::reset() {
    zones_.clear();
    streamtraces_.clear();
    solutionTime_ = 0;
    colouring_ = Colouring();
    changed();
}

}  // namespace vexhost
