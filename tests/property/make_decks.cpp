// Writes decks out of chance: make_decks FOLDER COUNT

#include "support/Deck.h"
#include "support/DeckMaker.h"

#include <cstdlib>

int main(int nArgs, char** aArgs) {
    if (nArgs != 3) return 2;
    const std::filesystem::path folder = aArgs[1];
    const unsigned long nCount = std::strtoul(aArgs[2], nullptr, 10);
    for (unsigned long i = 1; i <= nCount; ++i) {
        WriteText((folder / ("made" + std::to_string(i) + ".dat")).string(), CDeckMaker(i).Deck());
    }
    return 0;
}
