// make_pages: prints what becomes of every field of every card ("cards") or the rules of restating ("rules").

#include "support/FieldFates.h"
#include "support/Restated.h"

#include <cstdio>
#include <string_view>

int main(int nArgs, char** aArgs) {
    const std::string_view sPage = nArgs == 2 ? aArgs[1] : "";
    if (sPage != "cards" && sPage != "rules") return 2;
    std::fputs((sPage == "cards" ? MakeCardsPage(FindFieldFates()) : MakeRulesTable()).c_str(), stdout);
}
