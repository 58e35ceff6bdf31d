// The order of the passes.

#include "messages/ZdtMsgMgr.h"
#include "store/DataPool.h"

int CDataPool::ResolveModel() {
    ResolveCoordinateSystems();   // from the cards alone
    ResolveGridPositions();       // needs the frames
    ResolveElementOrientations(); // needs positions
    ResolveLoadDirections();      // needs positions
    ResolveNodeLocalAxes();       // needs the frames
    return 1;
}

int CDataPool::LogMessage(std::string_view sFormat, TEXT_ARGS aArgs) const {
    m_pMsgMgr->AddMessageF(sFormat, aArgs);
    return 0;
}
