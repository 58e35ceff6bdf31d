#pragma once
// A conversion as one page for any browser, in which an engineer reviews and signs it.

#include "nas2zdt/account/AccountOutput.h"
#include "nas2zdt/check/Check.h"
#include "nas2zdt/report/RunNotes.h"
#include "platform/File.h"

#include <cstddef>
#include <string>
#include <vector>

class CDataPool;

/// What a page is made of, beside the model.
struct T_REPORT_D {
    static constexpr std::size_t MOST_PLACES = 100000; // of a kind of loss, which the account should keep

    const T_RESULT_D& result; // with an account
    const CAccount& account;
    const T_CHECK_D* pCHECK; // null if the deck couldn't be read for it
    const CRunNotes& notes;
    const std::vector<T_TOLD_D>& aRESTATED; // places in files by their numbers in aSOURCES
    const std::vector<std::string>& aSOURCES;
    std::vector<std::string> aWARNINGS;
    std::vector<std::string> aARGUMENTS; // of the command line
    std::string sDATE;                   // in UTC
};

/// The time in UTC as "2026-01-31 12:00:00 UTC", that of SOURCE_DATE_EPOCH if it is set.
std::string ReportDate();

/// Writes the page of rReport and of the resolved model rPool to sPath, a whole file or nothing. The command must have
/// been built with a page. Files of rInputs aren't overwritten. Throws CFileException.
void WriteReport(const T_REPORT_D& rReport, const CDataPool& rPool, const std::string& sPath, const T_INPUTS& rInputs);
