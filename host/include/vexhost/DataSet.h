// The host's data set: zones (numbered from 1 in the order added), streamtraces and the current
// solution time. Available while it holds at least one zone.
//
// State changes sent: adding zones VexStateChange_ZonesAdded, clearing VexStateChange_DataSetReset.
// The control side's setSolutionTime sends nothing; VexUtilSolutionTimeSetCurrent sends
// VexStateChange_SolutionTime.
#ifndef VEXHOST_DATASET_H
#define VEXHOST_DATASET_H

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "vexhost/ColourMap.h"
#include "vexhost/Streamtrace.h"
#include "vexhost/Zone.h"

namespace vexhost {

class StateNotifier;

class DataSet {
public:
    explicit DataSet(StateNotifier& stateChanges) : stateChanges_(stateChanges) {}
    DataSet(const DataSet&) = delete;
    DataSet& operator=(const DataSet&) = delete;

    // Returns the new zone's number.
    int32_t addZone(Zone zone);
    // One notification for all of them.
    void addZones(std::vector<Zone> zones);
    void addStreamtrace(std::shared_ptr<const Streamtrace> streamtrace);
    // No zones, no streamtraces, solution time 0, the default colouring.
    void clear();

    bool isAvailable() const { return !zones_.empty(); }
    int32_t zoneCount() const { return static_cast<int32_t>(zones_.size()); }
    bool isValidZone(int32_t number) const { return number >= 1 && number <= zoneCount(); }
    // 1-based; std::out_of_range naming the number otherwise.
    const Zone& zone(int32_t number) const;
    void setZoneEnabled(int32_t number, bool enabled);
    // The numbers of the enabled zones, ascending.
    std::vector<int32_t> enabledZones() const;
    // What is shown at a solution time: of the enabled zones, for each strand the zone with the
    // latest time not after `time` (the first added of equal times), and every zone of strand 0;
    // ascending numbers.
    std::vector<int32_t> zonesShownAt(double time) const;

    const std::vector<std::shared_ptr<const Streamtrace>>& streamtraces() const {
        return streamtraces_;
    }

    double solutionTime() const { return solutionTime_; }
    void setSolutionTime(double time) { solutionTime_ = time; }

    // Over every zone's geometry (and the streamtrace points, for the box), so colours and the axis
    // box do not change from one time step to the next. (0, 1) and the unit box without geometry.
    struct Extent {
        float scalarMin = 0, scalarMax = 1;
        std::array<float, 3> boundsMin = {0, 0, 0}, boundsMax = {1, 1, 1};
    };
    const Extent& extent() const;

    // How the zones' scalars are shown: the variable they hold (the colour legend's title; empty:
    // no legend) and the colour map. Rainbow without a variable until set.
    struct Colouring {
        std::string variable;
        ColourMap map = ColourMap::Rainbow;
    };
    void setColouring(Colouring colouring);  // sends no state change
    const Colouring& colouring() const { return colouring_; }

    // As clear(), without a state change.
    void reset();

private:
    void changed();

    StateNotifier& stateChanges_;
    std::vector<Zone> zones_;
    std::vector<std::shared_ptr<const Streamtrace>> streamtraces_;
    double solutionTime_ = 0;
    Colouring colouring_;
    mutable Extent extent_;
    mutable bool extentValid_ = false;
};

}  // namespace vexhost

#endif
