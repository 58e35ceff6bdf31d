// The order of the passes.

#include "store/DataPool.h"

int CDataPool::ResolveModel() {
    ResolveCoordinateSystems();   // from the cards alone
    ResolveGridPositions();       // needs the frames
    ResolveElementOrientations(); // needs positions
    ResolveLoadDirections();      // needs positions
    ResolveNodeLocalAxes();       // needs the frames
    return 1;
}
