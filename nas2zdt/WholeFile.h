#pragma once
// An output file that is there whole or not at all.

#include "platform/File.h"
#include "writer/Format.h"

#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

/// Writes under a temporary name beside the path, which Finish turns into the path. Whatever stood there before stays
/// until then, and for good if Finish isn't reached. A path that is no regular file, such as a device, is written
/// straight. Every operation throws CFileException, which names the path.
class CWholeFile {
  public:
    /// A file whose identity is among aKeep is left as it is and counts as one that can't be created.
    explicit CWholeFile(const std::string& sPath, const std::vector<T_FILEID_D>& aKeep = {});
    CWholeFile(const CWholeFile&) = delete;
    CWholeFile& operator=(const CWholeFile&) = delete;
    ~CWholeFile();

    template <class... ARGS>
    void Print(T_FORMAT_D<std::type_identity_t<ARGS>...> format, const ARGS&... args) {
        Guarded([&] { FormatTo(m_file, format, args...); });
    }
    void Write(std::string_view sText) {
        Guarded([&] { m_file.Write(sText); });
    }
    /// The file itself, for what writes to one.
    CFile& GetFile() { return m_file; }

    void Finish();

  private:
    template <class ACTION>
    void Guarded(ACTION action) {
        try {
            action();
        } catch (const CFileException& rError) {
            throw CFileException(m_sShown, rError.GetCause());
        }
    }

    std::string m_sShown;     // the path as it was given
    std::string m_sPath;      // the file that it leads to
    std::string m_sTemporary; // empty once there's nothing to remove
    CFile m_file;
};
