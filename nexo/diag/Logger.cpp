#include "nexo/diag/Logger.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <ctime>

#include "nexo/base/Format.h"
#include "nexo/base/Time.h"
#include "nexo/diag/ModuleVersion.h"
#include "nexo/env/DirectoryOps.h"
#include "nexo/platform/Clock.h"
#include "nexo/platform/CodePage.h"
#include "nexo/platform/Error.h"
#include "nexo/platform/FileSearch.h"
#include "nexo/platform/FileSystem.h"

namespace {

using nexo::platform::ByteBuffer;
using nexo::platform::File;

constexpr std::string_view header = "Group;Message;Current File;Source File;Line;Time\n";
constexpr std::size_t largestKeptBuffer = 65536;
constexpr std::size_t timeLength = 13;  // with its line end

CString DefaultName() {
    const CTime now = CTime::GetCurrentTime();
    return nexo::Formatted(L"Log_%i.%i.%i.csv", now.GetYear(), now.GetMonth(), now.GetDay());
}

/// Narrows a text whose units are all of ASCII, which most are, and looks for the bytes that would break a
/// field in the same pass. False when a unit is not of ASCII; `out` then holds anything.
bool NarrowAscii(std::wstring_view text, char* out, bool& breaking) {
    unsigned int bits = 0, found = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto unit = static_cast<unsigned int>(text[i]);
        bits |= unit;
        found |= static_cast<unsigned int>(unit == ';') | static_cast<unsigned int>(unit == '\n');
        out[i] = static_cast<char>(unit);
    }
    breaking = found != 0;
    return bits < 0x80;
}

/// Logs are read with spreadsheets, so their bytes are those of the library's other text files.
ByteBuffer Narrow(std::wstring_view text) {
    ByteBuffer bytes;
    nexo::platform::FromWide(nexo::platform::kCodePageWindows1252, text, bytes);
    return bytes;
}

/// Makes the bytes of a message fit for one field of one line.
void Clean(char* message, const char* end) {
    const bool lineFeed = std::find(message, const_cast<char*>(end), '\n') != end;
    for (char* at = message; at != end; ++at) {
        if (*at == ';') *at = ',';
        if (lineFeed && (*at == '\n' || *at == '\r')) *at = '|';
    }
}

void PutDigits(int number, int count, char* out) {
    for (int i = count; i-- > 0; number /= 10) out[i] = static_cast<char>('0' + number % 10);
}

/// Writes one line into a buffer that has room for all of it.
class LineWriter {
public:
    LineWriter(ByteBuffer& buffer, std::size_t room) {
        buffer.Reserve(room);
        begin_ = at_ = buffer.Data();
    }
    void Add(char byte) { *at_++ = byte; }
    void Add(std::string_view bytes) { at_ = std::copy(bytes.begin(), bytes.end(), at_); }
    void Add(int number) { at_ = std::to_chars(at_, at_ + 11, number).ptr; }
    void Add(std::wstring_view text) { AddNarrowed(text); }

    void AddMessage(std::wstring_view text) {
        if (text.starts_with(L'-')) Add(' ');
        char* start = at_;
        if (AddNarrowed(text)) Clean(start, at_);
    }
    [[nodiscard]] std::string_view View() const { return {begin_, at_}; }

private:
    /// Whether the text may hold what breaks a field.
    bool AddNarrowed(std::wstring_view text) {
        bool breaking;
        if (NarrowAscii(text, at_, breaking)) {
            at_ += text.size();
            return breaking;
        }
        Add(Narrow(text).View());  // never longer than the text
        return true;
    }

    char *begin_, *at_;
};

/// Days that are over, rounded down also before the beginning.
std::int64_t WholeDays(std::int64_t ticks) {
    constexpr std::int64_t ticksPerDay = 86400 * nexo::platform::kTicksPerSecond;
    return ticks / ticksPerDay - (ticks % ticksPerDay < 0 ? 1 : 0);
}

/// Whether a log holds the file open, in this process or another.
bool IsBeingWritten(const CFilePath& file) {
    File probe;
    return !probe.Open(file, File::Mode::kAppend, File::Share::kReadOnly) &&
           nexo::platform::LastError() == nexo::platform::kErrorSharingViolation;
}

}  // namespace

CLogger& CLogger::GetInstance() {
    static auto& logger = *new CLogger;  // writable until the process ends, whatever is destroyed before
    return logger;
}

void CLogger::SetCurrentFile(const CFilePath& file) {
    currentFile_ = Narrow(file.View());
}

CDirPath CLogger::Directory() const {
    return directory_.IsEmpty() ? GetTempPathW() : directory_;
}

int CLogger::Start() {
    if (IsStarted()) return 1;
    if (logName_.IsEmpty()) logName_ = DefaultName();
    directory_ = Directory();
    if (!nexo::platform::DirectoryExists(directory_) && !nexo::platform::CreateDirectory(directory_) &&
        !nexo::platform::DirectoryExists(directory_))
        return 0;
    filePath_ = directory_.AppendFile(logName_);
    filePath_.SetFileExt(L"csv");
    return OpenFile() ? 1 : 0;
}

/// Opens the file, or one of another name when it cannot be had although it exists.
bool CLogger::OpenFile() {
    const bool existed = nexo::platform::FileExists(filePath_);
    if (file_.Open(filePath_, File::Mode::kAppend, File::Share::kReadOnly)) return existed || WriteHeader();
    // Another process may have made it meanwhile.
    if (!existed && nexo::platform::LastError() != nexo::platform::kErrorSharingViolation) return false;
    return OpenAnotherFile();
}

bool CLogger::OpenAnotherFile() {
    const CString oldName = logName_;
    std::uint32_t tick = nexo::platform::TickCount();
    for (int attempt = 0; attempt < 16; ++attempt, ++tick) {
        logName_.Format(L"%s_%u.csv", GetShortFileName(oldName), tick);
        filePath_.SetFileName(logName_);
        if (nexo::platform::FileExists(filePath_))
            continue;  // of a process that started in the same millisecond
        if (file_.Open(filePath_, File::Mode::kAppend, File::Share::kReadOnly) && WriteHeader()) return true;
        if (nexo::platform::LastError() != nexo::platform::kErrorSharingViolation) break;
    }
    logName_ = oldName;
    return false;
}

/// A log whose very first line does not fit on the disk is none.
bool CLogger::WriteHeader() {
    if (file_.Size() > 0 || file_.Append(header)) return true;
    const unsigned int error = nexo::platform::LastError();
    file_.Close();
    nexo::platform::DeleteFile(filePath_);
    nexo::platform::SetLastError(error);
    return false;
}

void CLogger::WriteLine(const wchar_t* group, const Position* position, const wchar_t* format,
                        std::span<const nexo::FormatArg> args) {
    if (!file_.IsOpen()) return;
    nexo::FormatInto(message_, format, args);
    const std::wstring_view groupText = group ? group : L"(null)";
    const std::string_view place = position && position->file ? position->file : position ? "(null)" : "";
    constexpr std::size_t others = 40;  // separators, line number and time
    LineWriter line(line_,
                    groupText.size() + message_.View().size() + currentFile_.Size() + place.size() + others);
    line.Add(groupText);
    line.Add(';');
    line.AddMessage(message_.View());
    line.Add(';');
    line.Add(currentFile_.View());
    line.Add(';');
    line.Add(place);
    line.Add(';');
    if (position) line.Add(position->line);
    line.Add(';');
    line.Add({Time(), timeLength});
    file_.Append(line.View());
    ForgetLongLines();
}

/// The milliseconds are those of the tick count, not of the second: the two need not turn together.
const char* CLogger::Time() {
    if (const std::int64_t now = std::time(nullptr); now != second_) {
        const CTime time(now);
        PutDigits(time.GetHour(), 2, time_);
        PutDigits(time.GetMinute(), 2, time_ + 3);
        PutDigits(time.GetSecond(), 2, time_ + 6);
        second_ = now;
    }
    PutDigits(static_cast<int>(nexo::platform::CoarseTickCount() % 1000), 3, time_ + 9);
    return time_;
}

void CLogger::ForgetLongLines() {
    if (line_.Capacity() > largestKeptBuffer) line_ = {};
    if (message_.GetAllocLength() > static_cast<int>(largestKeptBuffer)) message_ = CString();
}

void CLogger::WriteStartup(const CFilePath& module) {
    nexo::ModuleVersion version;
    if (nexo::FindModuleVersion(module, version)) {
        Write(L"Start", L"Version %s (%.0f)", version.text, version.build);
    } else {
        Write(L"Start", L"Version information is missing");
    }
}

CStringArray CLogger::FindOldLogFiles(int days) const {
    CStringArray files;
    const CDirPath directory = Directory();
    const std::int64_t now = nexo::platform::SystemTimeTicks();
    nexo::platform::FileSearch search;
    for (bool more = search.Open(directory.AppendFile(L"*.csv")); more; more = search.Next()) {
        nexo::platform::FileInfo info;
        if (search.IsDirectory() || !search.Info(info) || WholeDays(now - info.written) <= days) continue;
        const CFilePath file = directory.AppendFile(CString(search.Name()));
        if (!IsBeingWritten(file)) files.Add(file);
    }
    return files;
}

void CLogger::PurgeLogFiles(int days) {
    for (const CString& file : FindOldLogFiles(days)) nexo::platform::DeleteFile(file);
}
