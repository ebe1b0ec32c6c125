#include "examples/gallery/Pages.h"
#include "platform/memory/MemoryFolderSource.h"
#include "platform/MessageLoop.h"
#include "qt/controls/FolderComboWidget.h"
#include "qt/controls/FolderTreeWidget.h"
#include "qt/QtText.h"

#include <QCheckBox>
#include <QLabel>
#include <QVBoxLayout>

namespace Gallery
{

namespace
{

using namespace CommonUI;

// Folders that are none of this machine, and a drive that hangs.
std::shared_ptr<CMemoryFolderSource> MakeSource()
{
    auto source = std::make_shared<CMemoryFolderSource>(std::vector<CStr>{u"/", u"//server/archive"});
    const std::pair<const char16_t*, std::vector<CStr>> folders[] = {
        {u"/", {u"data", u"programs", u"users"}},
        {u"/data", {u"ceramic", u"silicon", u"steel", u".trash"}},
        {u"/data/steel", {u"line 1", u"line 2", u"line 10"}},
        {u"/data/steel/line 2", {u"raw", u"reports"}},
        {u"//server/archive", {u"2022", u"2023"}},
    };
    for (const auto& [path, names] : folders)
        source->SetFolders(path, names);
    for (const char16_t* const path :
         {u"/data/ceramic", u"/data/silicon", u"/data/steel/line 1", u"/data/steel/line 10",
          u"/data/steel/line 2/raw", u"/data/steel/line 2/reports", u"/data/.trash"})
        source->SetFolders(path, {});
    source->SetError(u"/users", u"/users cannot be read: Permission denied");
    source->Hang(u"//server/archive");
    return source;
}

class CFoldersPage : public QWidget
{
public:
    explicit CFoldersPage(FLog log)
        : m_log(std::move(log))
    {
        auto* const layout = new QVBoxLayout(this);
        const auto add = [&](const char* title, QWidget* control) {
            auto* const label = new QLabel(QString::fromUtf8(title));
            label->setBuddy(control);
            layout->addWidget(label);
            layout->addWidget(control);
        };
        m_combo.GetRecent().Set({u"/data/steel/line 2/reports", u"/data/silicon"});
        m_combo.SetPath(u"/data/steel");
        m_combo.SetCallback(*this, &CFoldersPage::OnEntered);
        m_tree.SetCallback(*this, &CFoldersPage::OnSelected);
        auto* const tree = new CFolderTreeWidget;
        tree->Attach(m_tree);
        add("&Folder:", new CFolderComboWidget(m_combo));
        add("Fo&lders:", tree);
        layout->setStretchFactor(tree, 1);
        auto* const answer = new QCheckBox(QStringLiteral("The &server answers"));
        connect(answer, &QCheckBox::toggled, this, [this](bool answers) {
            if (answers)
                m_source->Release(u"//server/archive");
            else
                m_source->Hang(u"//server/archive");
        });
        layout->addWidget(answer);
    }
    // No thread is left to wait for the server.
    ~CFoldersPage() override { m_source->Release(u"//server/archive"); }

    std::shared_ptr<CMemoryFolderSource> m_source = MakeSource();
    CFolderTree m_tree{m_source};
    CFolderCombo m_combo{m_source};

private:
    void OnEntered(const CStr& path)
    {
        m_log(QStringLiteral("Entered: %1").arg(ToQString(path)));
        m_tree.GoTo(path);
    }
    void OnSelected(const CStr& path)
    {
        m_log(QStringLiteral("Selected: %1").arg(ToQString(path)));
        m_combo.SetPath(path);
    }

    FLog m_log;
};

} // namespace

QWidget* MakeFoldersPage(const FLog& log)
{
    return new CFoldersPage(log);
}

void StageFoldersPage(QWidget& page)
{
    using EState = CFolderNode::EState;
    CFolderTree& tree = static_cast<CFoldersPage&>(page).m_tree;
    tree.GoTo(u"/data/steel/line 2");
    GetMessageLoop().RunUntil([&] { return !tree.IsGoing(); });
    const CFolderNode& top = tree.GetTop().GetChild(0);
    tree.Expand(top.GetChild(2));
    const CFolderNode& server = tree.GetTop().GetChild(1);
    tree.Expand(server);
    GetMessageLoop().RunUntil(
        [&] { return server.GetState() == EState::Slow && top.GetChild(2).GetState() == EState::Failed; });
}

} // namespace Gallery
