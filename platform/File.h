#pragma once
// Files as the converter needs them: a deck that is read, an output file that is written, and how the two are told
// apart. Paths are UTF-8 on every platform.

#include "platform/TextSink.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Identity of a file under all its names: volume and number on the volume.
struct T_FILEID_D {
    std::uint64_t nVOLUME = 0;
    std::uint64_t nNUMBER = 0;
    auto operator<=>(const T_FILEID_D&) const = default;
};

/// What changes with the contents of a file.
struct T_FILESTAMP_D {
    std::uint64_t nBYTES = 0;
    std::int64_t nTIME = 0; // of the last change, in nanoseconds of a clock that all files and FileTimeNow share
    auto operator<=>(const T_FILESTAMP_D&) const = default;
};

/// The time of a file that is changed now.
std::int64_t FileTimeNow();

/// Files that are read and may not be overwritten, each with its description: "the deck wing.dat".
using T_INPUTS = std::map<T_FILEID_D, std::string>;

/// Whether there is a folder of that name.
bool IsFolder(const std::string& sPath);

/// The path from the root of the file system without "." and "..", whether the file exists or not. It leads to the same
/// file as sPath; a symbolic link keeps its name but before a "..".
std::string FullPath(const std::string& sPath);

/// What is found at the path of an output file.
enum E_TARGET {
    TARGET_NEW,   // nothing
    TARGET_FILE,  // a file
    TARGET_STREAM // what can't be replaced: a device, a pipe, standard output, a folder
};

/// A path to write to, behind all symbolic links.
struct T_TARGET_D {
    E_TARGET eTARGET = TARGET_NEW;
    std::string sPATH;
    T_FILEID_D id;     // of what is there
    T_FILEID_D folder; // with sNAME identifies a file that doesn't exist yet
    std::string sNAME; // in the folder, in one case where the system doesn't tell case apart
};

/// Follows sPath. Folders that don't exist get no identity.
T_TARGET_D FindTarget(const std::string& sPath);

/// A deck opened for reading. Only regular files open.
class CDeckFile {
  public:
    CDeckFile() = default;
    CDeckFile(const CDeckFile&) = delete;
    CDeckFile& operator=(const CDeckFile&) = delete;
    ~CDeckFile() { Close(); }

    /// Opens sPath exactly or, where the file system tells case apart and the path isn't there, without regard to
    /// case, folder by folder; a folder is listed once in the life of the object. Returns 1, or 0 with the cause in
    /// rCause.
    int Open(const std::string& sPath, std::string& rCause);

    /// Reads up to nSize bytes. Returns their number, 0 at the end of the file, -1 if the file can't be read on or was
    /// cut short since it was opened.
    std::ptrdiff_t Read(char* pBuffer, std::size_t nSize);

    void Close();

    /// Identity of the open deck.
    const T_FILEID_D& GetId() const { return m_id; }

    /// Bytes not read yet of those that the deck had when it was opened.
    std::uint64_t GetUnread() const { return m_nUnread; }

    /// As it was opened.
    const T_FILESTAMP_D& GetStamp() const { return m_stamp; }

  private:
    std::string FindWithoutCase(const std::string& sFolder, const std::string& sName);
    std::string ResolveWithoutCase(std::string sPath);

    std::intptr_t m_iHandle = -1;
    T_FILEID_D m_id;
    T_FILESTAMP_D m_stamp;
    std::uint64_t m_nUnread = 0;                                  // of the bytes that the deck had when it was opened
    std::map<std::string, std::vector<std::string>> m_mapFolders; // names in folders that were searched
};

/// Failure of an output file: which file, and why in the system's words.
class CFileException : public std::exception {
  public:
    CFileException(std::string sFile, std::string sCause)
        : m_sFile(std::move(sFile)), m_sCause(std::move(sCause)), m_sText(m_sFile + ": " + m_sCause) {}
    const char* what() const noexcept override { return m_sText.c_str(); }
    const std::string& GetFile() const { return m_sFile; }
    const std::string& GetCause() const { return m_sCause; }
    /// One line for a person: file and cause.
    const std::string& GetText() const { return m_sText; }

  private:
    std::string m_sFile;
    std::string m_sCause;
    std::string m_sText;
};

/// Failure of an output file that grows over its limit.
class CFileTooLong : public CFileException {
  public:
    explicit CFileTooLong(std::string sFile) : CFileException(std::move(sFile), "The file grows over its limit") {}
};

/// The output file: bytes go out unchanged, through a buffer, in the order written. Every operation but Abort
/// throws CFileException when the file fails.
class CFile : public CTextSink {
  public:
    ~CFile() override { Abort(); }

    /// Before Create: most bytes that the file may have. A longer one raises CFileTooLong, and what would pass the
    /// limit isn't written.
    void SetLimit(std::uint64_t nMost) { m_nMost = nMost; }

    /// Creates sPath or cuts an existing file to length 0. A file whose identity is among aKeep is left as it is and
    /// counts as one that can't be created.
    void Create(const std::string& sPath, const std::vector<T_FILEID_D>& aKeep = {});

    /// Creates sPath for a file that will replace rTarget, with the rights of that if it exists. Failures name sShown.
    /// Returns 0 if the name is taken.
    int CreateFor(const T_TARGET_D& rTarget, const std::string& sPath, const std::string& sShown);

    /// Writes on to the program's standard output or standard error if rTarget is where that goes. Returns 0 if it
    /// isn't.
    int JoinStandardStream(const T_TARGET_D& rTarget, const std::string& sShown);

    /// Takes a text away, without a copy if it is long.
    void Append(CTextPiece& rPiece);

    void Flush();

    /// Writes what is buffered and closes; a close that fails counts as a failed write.
    void Close();

    /// Closes without writing the buffer and without raising anything.
    void Abort() noexcept;

  private:
    void MakeRoom(std::size_t nSize) override;
    void CountFlush();

    std::intptr_t m_iHandle = -1;
    std::string m_sPath; // as failures name it
    std::uint64_t m_nMost = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t m_nFlushed = 0; // bytes of the file so far
};
