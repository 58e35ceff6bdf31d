#pragma once
// Makes calls of the system and requests for memory fail. The program is linked so that the converter's calls come here
// first.

#include <cstddef>

/// The calls of the system that the converter makes.
enum E_CALL { CALL_OPEN, CALL_OPENDIR, CALL_FSTAT, CALL_FTRUNCATE, CALL_READ, CALL_WRITE, CALL_CLOSE };

constexpr int NO_ERROR = 0;     // the call goes its way
constexpr int SHORT_WRITE = -1; // a write takes half of the bytes

/// While it lives, the nTh call of its kind fails with an errno, or something else happens just before it.
class CFault {
  public:
    CFault(E_CALL eCall, int nTh, int iError, void (*pfnBefore)() = nullptr);
    ~CFault();
    CFault(const CFault&) = delete;
    CFault& operator=(const CFault&) = delete;

    /// Whether there were that many calls.
    bool IsMet() const { return m_nCalls >= m_nTh; }

    /// What befalls a call of this kind: an errno, NO_ERROR or SHORT_WRITE.
    static int Meet(E_CALL eCall);

  private:
    E_CALL m_eCall;
    int m_nTh;
    int m_iError;
    void (*m_pfnBefore)();
    int m_nCalls = 0;
};

/// While it lives, the nTh request for memory is refused, or with bOnwards that one and all behind it.
class CRefusal {
  public:
    CRefusal(long nTh, bool bOnwards);
    ~CRefusal();
    CRefusal(const CRefusal&) = delete;
    CRefusal& operator=(const CRefusal&) = delete;

    /// Whether there were that many requests.
    bool IsMet() const;
};

/// Pieces of memory that operator new gave and operator delete didn't take back yet.
long LivePieces();
