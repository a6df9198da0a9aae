// Trees that are read, copied, changed and assigned in any order write the text of a plain model that went
// through the same.
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/tree/tree_reference.h"

namespace {

using reference::Check;

constexpr std::size_t kMostItems = 3000;

class Editor {
public:
    Editor(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    void Run() {
        while (size_ > 0) {
            Step();
            Compare();
        }
    }

private:
    unsigned Byte() {
        if (size_ == 0) return 0;
        --size_;
        return *data_++;
    }
    std::wstring Text() {
        const unsigned byte = Byte();
        if (byte == 255) return std::wstring(300, L'y');
        return byte % 5 == 0 ? L"" : L"name" + std::to_wstring(byte % 7);
    }

    /// Goes down to some node, in both trees at once.
    void Choose() {
        node_ = &top_;
        model_ = &model0_;
        for (unsigned steps = Byte() % 5; steps > 0 && !model_->children.empty(); --steps) {
            const auto index = static_cast<unsigned>(Byte() % model_->children.size());
            node_ = node_->GetChild(index);
            model_ = model_->children[index].get();
        }
    }

    void Step() {
        Choose();
        switch (Byte() % 14) {
            case 0:
                return Read();
            case 1:
                return AddChild();
            case 2:
            case 3:
                return AddLeaf();
            case 4:
                return DeleteChild();
            case 5:
                return DeleteLeaf();
            case 6:
                return SetValue();
            case 7:
                return RenameLeaf();
            case 8:
                return RenameNode();
            case 9:
                return Exchange();
            case 10:
                return Assign();
            case 11:
                return Find();
            case 12:
                return MoveChild();
            default:
                return Clear();
        }
    }

    void Read() {
        std::wstring text = L"[doc]\r\n";
        const unsigned rows = Byte() % 40;
        for (unsigned i = 0; i < rows; ++i) {
            text += L"[row]\r\nfirst:" + Text() + L"\r\nsecond:" + Text() + L"\r\n[ENDE_row]\r\n";
        }
        text += L"last:1\r\n[ENDE_doc]\r\n";
        if (Count(model0_) > kMostItems) return;
        const wchar_t* cursor = text.c_str();
        reference::Reader reader(text);
        node_->ReadFromMem(cursor, L':');
        reader.ReadNode(*model_, L':');
    }
    void AddChild() {
        const std::wstring name = Text();
        node_->AddChild(name.c_str());
        model_->children.push_back(std::make_unique<reference::Node>());
        model_->children.back()->name = name;
    }
    void AddLeaf() {
        const std::wstring name = Text(), value = Text();
        node_->AddLeaf(name.c_str(), value.c_str(), true);
        model_->leaves.emplace_back(name, value);
    }
    void DeleteChild() {
        if (model_->children.empty()) return;
        const std::size_t index = Byte() % model_->children.size();
        node_->DeleteChild(node_->GetChild(static_cast<unsigned>(index)));
        model_->children.erase(model_->children.begin() + static_cast<std::ptrdiff_t>(index));
    }
    void DeleteLeaf() {
        if (model_->leaves.empty()) return;
        const std::size_t index = Byte() % model_->leaves.size();
        delete node_->GetLeaf(static_cast<unsigned>(index));
        model_->leaves.erase(model_->leaves.begin() + static_cast<std::ptrdiff_t>(index));
    }
    void SetValue() {
        if (model_->leaves.empty()) return;
        const std::size_t index = Byte() % model_->leaves.size(), from = Byte() % model_->leaves.size();
        node_->GetLeaf(static_cast<unsigned>(index))
            ->SetRawData(node_->GetLeaf(static_cast<unsigned>(from))->GetRawData());
        model_->leaves[index].second = model_->leaves[from].second;
    }
    void RenameLeaf() {
        if (model_->leaves.empty()) return;
        const std::size_t index = Byte() % model_->leaves.size();
        const std::wstring name = Text();
        node_->GetLeaf(static_cast<unsigned>(index))->SetName(name.c_str());
        model_->leaves[index].first = name;
    }
    void RenameNode() {
        model_->name = Text();
        node_->SetName(model_->name.c_str());
    }
    void Exchange() {
        if (model_->children.empty()) return;
        const std::size_t a = Byte() % model_->children.size(), b = Byte() % model_->children.size();
        node_->ExchangeChildren(node_->GetChild(static_cast<unsigned>(a)),
                                node_->GetChild(static_cast<unsigned>(b)));
        std::swap(model_->children[a], model_->children[b]);
    }
    /// Assigns one child of the node to another one.
    void Assign() {
        if (model_->children.empty() || Count(model0_) > kMostItems) return;
        const std::size_t to = Byte() % model_->children.size(), from = Byte() % model_->children.size();
        *node_->GetChild(static_cast<unsigned>(to)) = *node_->GetChild(static_cast<unsigned>(from));
        auto copy = to == from ? std::make_unique<reference::Node>() : Copy(*model_->children[from]);
        copy->name = model_->children[from]->name;
        model_->children[to] = std::move(copy);
    }
    void Find() {
        const std::wstring name = Text();
        const CNode* const found = node_->FindChild(name.c_str());
        const CLeaf* const leaf = node_->FindLeaf(name.c_str());
        std::size_t i = 0;
        while (i < model_->children.size() && model_->children[i]->name != name) ++i;
        Check(found == node_->GetChild(static_cast<unsigned>(i)));
        for (i = 0; i < model_->leaves.size() && model_->leaves[i].first != name; ++i) {
        }
        Check(leaf == node_->GetLeaf(static_cast<unsigned>(i)));
    }
    /// Moves a child up to the top.
    void MoveChild() {
        if (model_->children.empty()) return;
        const std::size_t index = Byte() % model_->children.size();
        top_.AddChild(node_->GetChild(static_cast<unsigned>(index)));
        auto child = std::move(model_->children[index]);
        model_->children.erase(model_->children.begin() + static_cast<std::ptrdiff_t>(index));
        model0_.children.push_back(std::move(child));
    }
    void Clear() {
        switch (Byte() % 8) {
            case 0:
                model_->children.clear();
                return node_->DeleteAllChildren();
            case 1:
                model_->leaves.clear();
                return node_->DeleteAllLeaves();
            default:
                return;
        }
    }

    static std::unique_ptr<reference::Node> Copy(const reference::Node& node) {
        auto copy = std::make_unique<reference::Node>();
        copy->name = node.name;
        copy->leaves = node.leaves;
        for (const auto& child : node.children) copy->children.push_back(Copy(*child));
        return copy;
    }
    static std::size_t Count(const reference::Node& node) {
        std::size_t count = 1 + node.leaves.size();
        for (const auto& child : node.children) count += Count(*child);
        return count;
    }
    void Compare() {
        reference::CheckEqual(top_, model0_, L':');
        const CNode copy(top_);
        reference::CheckEqual(copy, model0_, L':');
    }

    const std::uint8_t* data_;
    std::size_t size_;
    CNode top_{L"top"};
    reference::Node model0_{L"top", false, {}, {}};
    CNode* node_ = &top_;
    reference::Node* model_ = &model0_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 400) return 0;
    Editor(data, size).Run();
    return 0;
}
