#include "nas2zdt/check/Check.h"

#include "nas2zdt/check/CheckDeck.h"
#include "nas2zdt/check/DeckTotals.h"
#include "nas2zdt/check/References.h"
#include "platform/Worker.h"

T_CHECK_D CheckDeck(const std::string& sDeck, const T_CHOICE_D& rChoice, double dTolerance) {
    T_CHECK_D check;
    const CCheckDeck deck(sDeck, rChoice);
    check.aFILES = deck.GetFiles();
    CWorker sums([&] { check.totals = TotalDeck(deck); }, rChoice.nTHREADS > 1);
    CheckReferences(deck, check.findings);
    check.aQUALITIES = CheckGeometry(deck, dTolerance, check.findings);
    sums.Wait();
    return check;
}
