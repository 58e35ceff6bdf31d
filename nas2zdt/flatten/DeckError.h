#pragma once
// What is wrong with a deck that can't be joined or restated.

#include "messages/RunError.h"
#include "nas2zdt/flatten/LineMap.h"
#include "platform/File.h"

#include <string>

/// A deck that can't be read to its end, with its place.
class CDeckError : public CFileException {
  public:
    CDeckError(E_FAILURE eFailure, const T_ORIGIN_D& rPlace, const std::string& sCause)
        : CFileException(PlaceText(rPlace), sCause), m_eFailure(eFailure), m_place(rPlace) {}

    E_FAILURE GetFailure() const { return m_eFailure; }
    const T_ORIGIN_D& GetPlace() const { return m_place; }

  private:
    static std::string PlaceText(const T_ORIGIN_D& rPlace) {
        return rPlace.iLINE > 0 ? rPlace.sFILE + ":" + std::to_string(rPlace.iLINE) : rPlace.sFILE;
    }

    E_FAILURE m_eFailure;
    T_ORIGIN_D m_place;
};

/// A deck that hasn't what was chosen of it.
class CChoiceError : public CFileException {
  public:
    using CFileException::CFileException;
};
