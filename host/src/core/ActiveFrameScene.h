// The host's scene source: the scene of the active frame, read from the frame stack, the style
// values ("GlobalThreeD", "ThreeDAxis", "StreamAttributes") and the data set when it is asked for.
#ifndef VEXHOST_CORE_ACTIVEFRAMESCENE_H
#define VEXHOST_CORE_ACTIVEFRAMESCENE_H

#include "vexhost/SceneSource.h"

namespace vexhost {

class DataSet;
class FrameStack;
class StyleStore;

class ActiveFrameScene : public SceneSource {
public:
    ActiveFrameScene(const FrameStack& frames, const StyleStore& style, const DataSet& dataSet)
        : frames_(frames), style_(style), dataSet_(dataSet) {}

    SceneState scene(bool withZones) const override;

private:
    const FrameStack& frames_;
    const StyleStore& style_;
    const DataSet& dataSet_;
};

}  // namespace vexhost

#endif
