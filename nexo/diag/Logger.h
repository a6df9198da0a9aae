#ifndef NEXO_DIAG_LOGGER_H
#define NEXO_DIAG_LOGGER_H

#include <cstdint>
#include <span>
#include <string>

#include "nexo/base/CString.h"
#include "nexo/base/Containers.h"
#include "nexo/base/Export.h"
#include "nexo/base/FormatArg.h"
#include "nexo/env/FilePath.h"
#include "nexo/platform/ByteBuffer.h"
#include "nexo/platform/File.h"

/// The diagnostic log of the process: a table for a spreadsheet, one line for each event, one file for each
/// run or day. docs/log-format.md describes the file.
///
/// Stopped at first; whatever is written then is dropped. Each line reaches the file, whole, before `Write`
/// returns, and is safe there when the process is killed. For one thread at a time. For logs of free form see
/// LogContainer.h.
///
///     CLogger& log = CLogger::GetInstance();
///     log.SetLogName(L"import.csv");
///     if (log.Start()) log.Write(L"Import", __FILE__, __LINE__, L"%d nodes read", count);
class NEXO_API CLogger {
public:
    static CLogger& GetInstance();
    CLogger(const CLogger&) = delete;
    CLogger& operator=(const CLogger&) = delete;

    /// File name of the log; its extension will be "csv". Without one it is "Log_<year>.<month>.<day>.csv".
    void SetLogName(const CString& name) { logName_ = name; }

    /// Folder of the log; without one it is the system's temporary folder.
    void SetLogDir(const CDirPath& directory) { directory_ = directory; }

    /// The document being worked on, which stands in every line from now on.
    void SetCurrentFile(const CFilePath& file);

    /// Opens the log, behind the lines that an existing file holds. While another process logs to it, a name
    /// with the tick count is taken instead, and kept as the log's name. A missing folder is created (one
    /// level).
    ///
    /// Returns 1, also when the log is started already; 0 when the folder or the file cannot be had, with the
    /// cause in platform::LastError().
    int Start();

    /// Closes the log; a later Start goes on with the same file.
    void Stop() { file_.Close(); }
    [[nodiscard]] int IsStarted() const { return file_.IsOpen() ? 1 : 0; }

    /// Writes a line; the message is formatted by the rules of Format.h.
    ///
    /// In the message ";" becomes ","; when it holds a line feed, line feeds and carriage returns become "|";
    /// before a leading "-" a space is put, lest a spreadsheet take it for a formula. A line that does not
    /// fit on the disk is left out whole.
    template <class... Args>
    void Write(const wchar_t* group, const wchar_t* format, const Args&... args) {
        const nexo::FormatArg list[] = {nexo::FormatArg(args)..., nexo::FormatArg()};
        WriteLine(group, nullptr, format, std::span(list, sizeof...(Args)));
    }

    /// The same with a position in the source; the bytes of the file name are written as they are.
    template <class... Args>
    void Write(const wchar_t* group, const char* sourceFile, int line, const wchar_t* format,
               const Args&... args) {
        const nexo::FormatArg list[] = {nexo::FormatArg(args)..., nexo::FormatArg()};
        const Position position{sourceFile, line};
        WriteLine(group, &position, format, std::span(list, sizeof...(Args)));
    }

    /// Writes the version of a module that was registered (ModuleVersion.h), or that it is missing, in group
    /// "Start".
    void WriteStartup(const CFilePath& module);

    /// Deletes the files "*.csv" of the log's folder that were last written more than `days` whole days ago.
    /// Logs that are open for writing, here or elsewhere, stay.
    void PurgeLogFiles(int days);

    /// The paths of what PurgeLogFiles would delete.
    [[nodiscard]] CStringArray FindOldLogFiles(int days) const;

private:
    struct Position {
        const char* file;
        int line;
    };

    CLogger() = default;
    ~CLogger() = default;

    CDirPath Directory() const;
    bool OpenFile();
    bool OpenAnotherFile();
    bool WriteHeader();
    void WriteLine(const wchar_t* group, const Position* position, const wchar_t* format,
                   std::span<const nexo::FormatArg> args);
    const char* Time();
    void ForgetLongLines();

    CString logName_;
    CDirPath directory_;
    CFilePath filePath_;
    nexo::platform::ByteBuffer currentFile_;  // as the lines show it
    nexo::platform::File file_;

    // Kept from line to line to save their making.
    CString message_;
    nexo::platform::ByteBuffer line_;
    std::int64_t second_ = -1;  // the second that time_ tells
    char time_[14] = "00:00:00.000\n";
};

#endif
