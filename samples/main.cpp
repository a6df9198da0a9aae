// A tour of the library: reads the documents of a small project, prints them, changes one article and writes
// the document and its XML form.
//
//     nexo_sample [PROJECT_FOLDER [OUTPUT_FOLDER]]

#include <filesystem>
#include <iostream>
#include <memory>

#include "Report.h"
#include "nexo/base/CString.h"
#include "nexo/platform/CodePage.h"
#include "nexo/text/StrUtil.h"
#include "nexo/tree/AsdFormat.h"
#include "nexo/tree/AsdItem.h"
#include "nexo/tree/Leaf.h"
#include "nexo/tree/Node.h"
#include "nexo/tree/TreeItems.h"

namespace {

namespace fs = std::filesystem;

// The library takes native paths as they are.
CString PathIn(const fs::path& folder, const char* file) {
    return nexo::platform::WideFromUtf8((folder / file).string());
}

[[nodiscard]] int Fail(const CString& what) {
    std::cerr << "nexo_sample: " << what << '\n';
    return 1;
}

// One more radiator actuator: an article is a leaf of its batch, its record is read, changed and stored
// again.
void OrderOneMore(CNode& batch) {
    CLeaf* leaf = batch.FindLeaf(L"HZ-1418");
    CAsdItem item;
    if (Asd::GetItem(leaf, item) == 0) return;
    const double before = item.amount;
    item.amount += 1;
    item.longText += L"\r\nMenge geändert: +1";
    Asd::SetItem(leaf, item);
    CString line;
    line.Format(L"  %s  %s: %g -> %g %s", item.name, item.text2, before, item.amount, item.text1);
    std::cout << line << '\n';
}

// All batches below one node, as the XML form has one root.
std::unique_ptr<CNode> TreeOf(const CAsdFormat& document) {
    auto top = std::make_unique<CNode>(L"Projekt");
    top->AddLeaf(L"Nummer", document.GetProjectData().GetAt(0));
    top->AddLeaf(L"Name", document.GetProjectData().GetAt(1));
    for (const CNode* batch : document.GetBatchNodes()) top->AddChild(new CNode(*batch));
    return top;
}

int WriteResults(const CAsdFormat& document, const fs::path& folder) {
    const CString asd = PathIn(folder, "lindenhof.asd");
    const CString xml = PathIn(folder, "lindenhof.xml");
    CString text;
    if (TreeItems::WriteToXml(TreeOf(document).get(), text) == 0) return Fail(L"the project has no XML form");
    if (document.WriteToFile(asd, 0) == 0) return Fail(L"can not write " + asd);
    if (!moxStrUtil::writeStringBufferToFile(text, xml, true, 3333, false))
        return Fail(L"can not write " + xml);
    std::cout << "  " << asd << "\n  " << xml << '\n';
    return 0;
}

int Run(const fs::path& project, const fs::path& output) {
    CAsdFormat document;
    const CString file = PathIn(project, "lindenhof.asd");
    if (document.ReadFromFile(file) == 0) return Fail(L"can not read " + file);
    const CString settingsFile = PathIn(project, "einstellungen.txt");
    const std::unique_ptr<CNode> settings(TreeItems::ReadFromFile(settingsFile, 1));
    if (settings == nullptr) return Fail(L"can not read " + settingsFile);

    PrintProject(document);
    PrintRooms(*settings);
    PrintBatches(document);
    PrintLargestItems(document, 3);

    PrintHeading(L"Changed");
    OrderOneMore(*document.GetBatchNodes().GetAt(0));
    PrintHeading(L"Written");
    fs::create_directories(output);
    return WriteResults(document, output);
}

}  // namespace

int main(int argc, char** argv) try {
    return Run(argc > 1 ? argv[1] : NEXO_SAMPLE_PROJECT, argc > 2 ? argv[2] : NEXO_SAMPLE_OUTPUT);
} catch (const std::exception& error) {
    std::cerr << "nexo_sample: " << error.what() << '\n';
    return 1;
}
