#pragma once
// The library's life: the message library is there from before the first call to after the last.

class CConvertNastranApp {
  public:
    CConvertNastranApp();
    virtual ~CConvertNastranApp();
    CConvertNastranApp(const CConvertNastranApp&) = delete;
    CConvertNastranApp& operator=(const CConvertNastranApp&) = delete;
};
