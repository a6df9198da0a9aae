#ifndef NEXO_DIAG_LOGCONTAINER_H
#define NEXO_DIAG_LOGCONTAINER_H

#include <mutex>
#include <span>

#include "nexo/base/CString.h"
#include "nexo/base/Containers.h"
#include "nexo/base/Export.h"
#include "nexo/base/FormatArg.h"
#include "nexo/platform/File.h"

/// A named log of free form: a text file (code page 1252) that gets texts as they are, without time and line
/// end. Closed at first and by its destructor. For one thread at a time; CLogContainer keeps logs for all.
class NEXO_API CLog {
public:
    CLog() = default;

    /// Creates the file, or empties an existing one, and keeps it open. Characters that no file name may hold
    /// become "_" in `path`. Nothing happens while the log is open.
    void startLog(const wchar_t* name, const wchar_t* path);

    /// Formats a text by the rules of Format.h and writes it when the log is open. It reaches the file, whole
    /// or not at all, before this returns.
    template <class... Args>
    void doLog(const wchar_t* format, const Args&... args) {
        const nexo::FormatArg list[] = {nexo::FormatArg(args)..., nexo::FormatArg()};
        write(format, std::span(list, sizeof...(Args)));
    }

    void endLog() { file_.Close(); }

    [[nodiscard]] bool isOpen() const { return file_.IsOpen(); }
    [[nodiscard]] const CString& getName() const { return name_; }

private:
    friend class CLogContainer;
    void write(const wchar_t* format, std::span<const nexo::FormatArg> args);

    CString name_;
    nexo::platform::File file_;
};

/// The named logs of the process, which parts of a program start, write and end by name. Empty and enabled at
/// first. Safe from any thread: each text is written whole, one after the other.
class NEXO_API CLogContainer {
public:
    static CLogContainer& GetInstance();
    CLogContainer(const CLogContainer&) = delete;
    CLogContainer& operator=(const CLogContainer&) = delete;

    /// Starts the log of that name, or a new one that is kept when its file could be opened; see CLog.
    /// Nothing happens while logging is disabled, or to a log that is open.
    void startLog(const wchar_t* name, const wchar_t* path);

    /// Writes a formatted text to the log of that name; dropped when there is none or logging is disabled.
    template <class... Args>
    void doLog(const wchar_t* name, const wchar_t* format, const Args&... args) {
        const nexo::FormatArg list[] = {nexo::FormatArg(args)..., nexo::FormatArg()};
        write(name, format, std::span(list, sizeof...(Args)));
    }

    /// Closes and forgets the log of that name.
    void endLog(const wchar_t* name);

    /// 1 when logging is enabled and there is a log of that name, else 0.
    [[nodiscard]] int hasLogNameUsed(const wchar_t* name);

    /// Logs that exist stay open while logging is disabled.
    void enableLogging(bool enable);
    [[nodiscard]] bool isEnabled();

private:
    CLogContainer() = default;
    ~CLogContainer() = default;

    int find(const wchar_t* name) const;
    void write(const wchar_t* name, const wchar_t* format, std::span<const nexo::FormatArg> args);

    CArray<CLog*> logs_;  // owned
    bool enabled_ = true;
    std::mutex lock_;
};

#endif
