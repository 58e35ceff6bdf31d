#pragma once
// The sets that subcases ask for.

#include <cstdint>
#include <string_view>
#include <vector>

/// What a subcase asks for; 0 for nothing.
struct T_CASE_D {
    std::int32_t iID = 1; // without any SUBCASE there is one
    std::int32_t iSPC = 0, iMPC = 0, iMETHOD = 0;
    std::int32_t iLOAD = 0, iTEMPERATURE = 0; // load sets both
};

/// A line of case control as far as it concerns sets.
struct T_CASELINE_D {
    bool bSUBCASE = false;                    // begins a subcase, of this id
    std::int32_t T_CASE_D::*pASKED = nullptr; // or asks for this set
    bool bINDIRECT = false;                   // or for loads by cards that ask for others in turn
    std::int32_t iVALUE = 0;
};

/// Reads a line, in any case.
T_CASELINE_D ReadCaseLine(std::string_view sLine);

/// Collects the subcases. What stands before the first one holds for all.
class CCaseRequests {
  public:
    void Add(const T_CASELINE_D& rLine);

    /// In their order; without any SUBCASE one that takes all.
    std::vector<T_CASE_D> GetCases() const { return m_aCases.empty() ? std::vector<T_CASE_D>{m_above} : m_aCases; }

    /// Whether loads may be asked for by cards that aren't read here.
    bool AsksIndirectly() const { return m_bIndirect; }

  private:
    bool m_bIndirect = false;
    T_CASE_D m_above;
    std::vector<T_CASE_D> m_aCases;
};
