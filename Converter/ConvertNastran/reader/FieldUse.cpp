// What became of the fields of a card.

#include "reader/FieldUse.h"

void T_FIELDUSE_D::AddSkipped(std::size_t iFirst, std::size_t iEnd, std::initializer_list<const char*> aNames) {
    for (std::size_t i = iFirst; i < iEnd; ++i) aSKIPPED.push_back({i, aNames.begin()[i - iFirst]});
}
