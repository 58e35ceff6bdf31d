#pragma once
// Somebody in front of the screen who answers every dialog as it comes.

#include <memory>
#include <string>
#include <vector>

enum E_SHOWN { SHOWN_BOX, SHOWN_CHOOSER, SHOWN_LIST, SHOWN_PROGRESS };

/// A dialog as it was seen.
struct T_SHOWN_D {
    E_SHOWN eKIND = SHOWN_BOX;
    std::string sTITLE;
    std::vector<std::string> aTEXTS;   // labels of a box or a progress window, filters of a chooser, rows of a list
    std::vector<std::string> aBUTTONS; // without the mark of the access key
    int iBAR = 0;                      // place of a progress bar
    bool bSelectable = false;          // the rows of a list
    bool bBothBars = false;            // a list has both scroll bars
    bool bScrollsToEnd = false;        // the widest row of a list can be scrolled to its end
};

/// Whether there is a screen at all.
bool HasScreen();

class CPerson {
  public:
    /// Chooses sDeck when asked for a deck, Cancel if it is empty, and accepts everything else.
    explicit CPerson(std::string sDeck);
    /// Goes away; what was seen is complete then.
    ~CPerson();
    CPerson(const CPerson&) = delete;
    CPerson& operator=(const CPerson&) = delete;

    /// The dialogs in the order seen. Only after all of them were closed.
    const std::vector<T_SHOWN_D>& GetShown() const;

    class CEyes;

  private:
    std::unique_ptr<CEyes> m_pEyes;
};
