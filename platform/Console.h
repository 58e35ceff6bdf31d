#pragma once
// A process and its terminal, in UTF-8 on every platform.

#include <cstdio>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

/// The arguments of the program without its name, from those that main was given.
std::vector<std::string> ReadArguments(int nArgs, char** aArgs);

/// Whether what starts programs here puts the names of files in place of patterns.
bool ShellExpands();

/// For a program: from now on a write past a limit of file sizes, or to a pipe without a reader, fails without a
/// signal.
void IgnoreWriteSignals();

/// Whether a standard stream is a terminal, where a person is.
bool IsTerminal(std::FILE* pStream);

/// Writes sText, made plain, to a standard stream of the process and flushes it, without a signal if that fails.
/// Returns 1, or 0 if it can't be written, which the stream's state tells, too.
int WritePlain(std::ostream& rStream, std::string_view sText);

/// While it lives, what the program writes to its terminal counts as UTF-8.
class CUtf8Console {
  public:
    CUtf8Console();
    ~CUtf8Console();
    CUtf8Console(const CUtf8Console&) = delete;
    CUtf8Console& operator=(const CUtf8Console&) = delete;

  private:
    [[maybe_unused]] unsigned int m_nCodePage = 0; // in use before, where a terminal has one; 0 for nothing to put back
};
