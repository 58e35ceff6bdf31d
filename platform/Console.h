#pragma once
// A program and its terminal, in UTF-8 on every platform.

#include <string>
#include <vector>

/// The arguments of the program without its name, from those that main was given.
std::vector<std::string> ReadArguments(int nArgs, char** aArgs);

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
