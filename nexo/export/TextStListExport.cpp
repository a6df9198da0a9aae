#include "nexo/export/TextStListExport.h"

#include <string_view>

#include "nexo/base/Format.h"
#include "nexo/export/PageWriter.h"
#include "nexo/export/PartsTemplate.h"
#include "nexo/export/TextSink.h"
#include "nexo/platform/File.h"
#include "nexo/platform/FileSystem.h"
#include "nexo/platform/UserInterface.h"
#include "nexo/text/LibraryText.h"
#include "nexo/text/TextFile.h"

namespace {

constexpr wchar_t kNoTemplate[] = L"Die Vorlage \"%s\" konnte nicht geöffnet werden!";
constexpr wchar_t kNoFile[] = L"Die Datei \"%s\" konnte nicht erstellt werden!";
constexpr wchar_t kNotWritten[] = L"Die Datei \"%s\" konnte nicht geschrieben werden!";

struct Source {
    CString text;
    nexo::TextEncoding encoding;
};

bool ReadTemplate(const CString& path, Source& source) {
    char mark[2];
    const std::ptrdiff_t size = nexo::platform::ReadFileStart(path, mark, sizeof mark);
    if (size < 0 || !nexo::ReadTextFile(path, nexo::kTextCodePageDefault, false, source.text)) return false;
    source.encoding = nexo::DetectEncoding({mark, static_cast<std::size_t>(size)});
    return true;
}

bool AskUser(const CString& question) {
    using namespace nexo::platform;
    return GetUserInterface()->ShowMessage(question.View(), {}, MessageIcon::kQuestion,
                                           MessageButtons::kYesNo) == MessageAnswer::kYes;
}

int Fail(const CString& message) {
    nexo::platform::ShowError(message.View());
    return 0;
}

int FailWithPath(const wchar_t* german, const CString& path) {
    return Fail(nexo::Formatted(nexo::TranslateLibraryText(german), path));
}

/// False with the cause in `message`, which stays empty when the user knows it or the sink failed.
bool WritePages(const Source& source, const CStList& list, const CProjectInfo& project, nexo::TextSink& sink,
                CString& message) {
    nexo::PartsTemplate layout;
    return layout.Read(source.text.View(), AskUser, message) &&
           nexo::PageWriter(layout, project, sink).Write(list, message);
}

}  // namespace

CTextStListExport::CTextStListExport() = default;
CTextStListExport::~CTextStListExport() = default;

int CTextStListExport::CreateStList(CStList& list, const CString& templatePath, const CString& outputPath,
                                    CProjectInfo* project) {
    const nexo::platform::WaitCursor waitCursor;
    Source source;
    if (!ReadTemplate(templatePath, source)) return FailWithPath(kNoTemplate, templatePath);
    nexo::platform::FileReplacement file;
    if (!file.Begin(outputPath)) return FailWithPath(kNoFile, outputPath);
    for (CArticle& article : list) article.textCursor = 0;

    nexo::TextSink sink(file, source.encoding);
    CString message;
    const bool written = WritePages(source, list, project ? *project : CProjectInfo(), sink, message);
    const bool stored = sink.Flush();
    // Also after a failure: users look there how far the list came.
    if (!file.Commit() || !stored) return FailWithPath(kNotWritten, outputPath);
    if (!message.IsEmpty()) return Fail(message);
    return written ? 1 : 0;
}
