// The order of the passes.

#include "store/DataPool.h"

int CDataPool::ResolveModel() {
    if (m_pLeftSink) MeasureStretches();
    ResolveCoordinateSystems(); // from the cards alone
    ResolveGridPositions();     // needs the frames
    if (m_pLeftSink) TellFrames();
    ResolveElementOrientations(); // needs positions
    ResolveLoadDirections();      // needs positions
    ResolveNodeLocalAxes();       // needs the frames
    return 1;
}
