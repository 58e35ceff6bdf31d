#pragma once
// The log of a run: a list of lines, shown when the run ends.

#include "messages/FormatText.h"

#include <string>
#include <vector>

class CDialogs;
class CFile;

/// What a log does.
class CZdtMsgMgrBase {
  public:
    virtual ~CZdtMsgMgrBase() = default;
    virtual void ClearMessages() = 0;
    virtual void InsertMessageF(std::string_view sFormat, TEXT_ARGS aArgs) = 0;
    virtual void AppendMessageF(std::string_view sFormat, TEXT_ARGS aArgs) = 0;
    virtual void AddMessageF(std::string_view sFormat, TEXT_ARGS aArgs) = 0;
    virtual void AddMessage(std::string sText) = 0;
    virtual void ShowMessages() = 0;
    virtual void WriteMessages(CFile& rFile) const = 0;
};

/// Keeps the lines in memory, oldest first.
class CZdtMsgMgr : public CZdtMsgMgrBase {
  public:
    /// rDialogs shows the list; it must outlive this object.
    explicit CZdtMsgMgr(CDialogs& rDialogs) : m_rDialogs(rDialogs) {}

    void ClearMessages() override { m_aMessages.clear(); }

    /// Formats a line and puts it in front of all others, without regard to the limit.
    void InsertMessageF(std::string_view sFormat, TEXT_ARGS aArgs) override;

    /// Formats a line and puts it behind all others, without regard to the limit.
    void AppendMessageF(std::string_view sFormat, TEXT_ARGS aArgs) override;

    /// Formats a line and adds it within the limit.
    void AddMessageF(std::string_view sFormat, TEXT_ARGS aArgs) override;

    /// Adds a line if there are fewer than the limit; drops it silently otherwise.
    void AddMessage(std::string sText) override;

    /// Shows the list and returns when it was closed. An empty list isn't shown.
    void ShowMessages() override;

    /// Writes every line with a line feed behind it. Throws CFileException.
    void WriteMessages(CFile& rFile) const override;

    const std::vector<std::string>& GetMessages() const { return m_aMessages; }

  private:
    bool IsFull() const { return m_aMessages.size() >= static_cast<std::size_t>(m_nMaxMessages); }

    std::vector<std::string> m_aMessages;
    int m_nMaxMessages = 200;
    CDialogs& m_rDialogs;
};
