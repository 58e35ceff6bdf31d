// make_cards: prints the page that tells what becomes of every field of every card.

#include "support/FieldFates.h"

#include <cstdio>

int main() {
    std::fputs(MakeCardsPage(FindFieldFates()).c_str(), stdout);
}
