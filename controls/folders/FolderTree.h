#pragma once

#include "../MultiClosure.h"
#include "../Timer.h"
#include "../View.h"
#include "../Window.h"
#include "FolderLister.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace CommonUI
{

class CFolderTree;

/// A folder in a tree. Its address stays the same as long as the folder is there.
class COMMONUI_API CFolderNode
{
public:
    /// What is known of what is in the folder.
    enum class EState {
        Unread,  ///< nobody knows yet what is in it
        Reading, ///< the drive has been asked
        Slow,    ///< and does not answer for a while
        Read,
        Failed ///< it cannot be read: see GetError
    };

    /// As it is shown: of a root its path; empty for the node above the roots.
    const CStr& GetName() const noexcept { return m_name; }
    /// In full; empty for the node above the roots.
    const CStr& GetPath() const noexcept { return m_path; }
    /// Null for the node above the roots only.
    const CFolderNode* GetParent() const noexcept { return m_parent; }
    /// How many folders in it are known; hidden ones count only while they are shown.
    std::size_t GetChildCount() const noexcept { return m_children.size(); }
    /// @param index below the count; in the order of people
    const CFolderNode& GetChild(std::size_t index) const { return *m_children[index]; }
    /// Its index in GetChild of its parent. Not for the node above the roots.
    std::size_t GetIndexInParent() const;
    /// Changes when the folder is expanded or refreshed, and when its drive answers.
    EState GetState() const noexcept { return m_state; }
    /// One sentence for the user.
    const CStr& GetError() const noexcept { return m_error; }
    /// Whether the user sees what is in it, or would if the folders above it were expanded.
    bool IsExpanded() const noexcept { return m_expanded; }
    /// Whether there is, or may be, something to expand.
    bool CanExpand() const noexcept { return m_state != EState::Read || !m_children.empty(); }

private:
    friend class CFolderTree;

    CFolderNode(CFolderNode* parent, const CStr& name, const CStr& path);

    CFolderNode* m_parent;
    CStr m_name;
    CStr m_path;
    std::vector<std::unique_ptr<CFolderNode>> m_children;
    EState m_state = EState::Unread;
    CStr m_error;
    bool m_expanded = false;
    CFolderLister::TRequest m_request = 0; // that is on its way; 0 for none
};

/// The tree on the screen, or what stands for it. It tells its tree what the user does.
class COMMONUI_API CFolderTreeView : public CControlView<CFolderTree>
{
public:
    ~CFolderTreeView() override;

    /// All children of a node are about to go, of the top also because the tree goes; some come back with
    /// OnChildrenArrived. A view that is being destroyed is told, too, and does nothing.
    virtual void OnChildrenLeaving(const CFolderNode& node);
    /// A node has children, which had none before.
    virtual void OnChildrenArrived(const CFolderNode& node) = 0;
    /// The state of a node, or whether it is expanded, has changed.
    virtual void OnNodeChanged(const CFolderNode& node) = 0;
    /// Another folder is selected, or none.
    virtual void OnSelected(const CFolderNode* node) = 0;
};

/// The logic of a tree of folders. A folder is listed when it is expanded, on another thread; until the drive
/// answers, everything else can be used, and the tree may be destroyed.
class COMMONUI_API CFolderTree : public CWnd, public CViewedControl<CFolderTreeView>
{
public:
    /// Milliseconds until a drive that does not answer counts as slow.
    COMMONUI_CONSTANT unsigned int c_slowTime = 500;

    /// @param source whose folders are shown; not null
    explicit CFolderTree(std::shared_ptr<const CFolderSource> source = GetSystemFolders());
    ~CFolderTree();

    /// Gives the tree its window, which shows all there is; null takes it away. The view is not owned.
    void SetView(CFolderTreeView* view);

    /// The node above the roots, which is not shown.
    const CFolderNode& GetTop() const noexcept { return *m_top; }
    /// Opens a folder, and asks what is in it unless that is known. One that could not be read is asked
    /// again.
    void Expand(const CFolderNode& node);
    /// Closes a folder, and gives up asking what is in it.
    void Collapse(const CFolderNode& node);
    /// Asks again what is in a folder. Folders that are there as before keep their nodes.
    void Refresh(const CFolderNode& node);
    /// At first hidden folders are not shown.
    void ShowHidden(bool show);
    /// Whether hidden folders are shown.
    bool AreHiddenShown() const noexcept { return m_hiddenShown; }

    /// The user has selected a folder. Null for none.
    void OnUserSelected(const CFolderNode* node);
    /// Goes to a folder, opening those on the way as their drive answers, until it is there or the user
    /// selects another one. If it is not there, or hidden, the last folder on the way is selected.
    /// @return false, and nothing happens, when the path has no root
    bool GoTo(const CStr& path);
    /// Whether GoTo is still on its way.
    bool IsGoing() const noexcept { return !m_way.empty(); }
    /// Null for none.
    const CFolderNode* GetSelected() const noexcept { return m_selected; }

    /// Sets the member function that is called when another folder is selected, by the user or at the end of
    /// GoTo. The object is not owned; the function may destroy the tree.
    template<class TObject>
    void SetCallback(std::type_identity_t<TObject>& object, void (TObject::*method)(const CStr& path))
    {
        m_slot.Set(MakeClosure(object, method));
    }

private:
    void AddRoots();
    void Request(CFolderNode& node);
    void OnListed(CFolderNode& node, const SFolderListing& listing);
    std::vector<CStr> ArrangeNames(const std::vector<SFolder>& folders) const;
    void SetChildren(CFolderNode& node, const std::vector<SFolder>& folders);
    void RefreshRead(CFolderNode& node);
    void CancelBelow(const CFolderNode& node);
    void SetState(CFolderNode& node, CFolderNode::EState state);
    void MarkSlow(CFolderNode& node);
    void OnSlowTimer(CBaseTimer& timer);
    void GoOn();
    CFolderNode* FindChild(const CFolderNode& node, const CStr& name) const;
    void Select(const CFolderNode* node);

    std::unique_ptr<CFolderNode> m_top;
    const CFolderNode* m_selected = nullptr;
    std::vector<CStr> m_way; // the root and the names that GoTo is going through; empty when it is not
    const CFolderNode* m_asked = nullptr; // whom it has asked last; only compared
    bool m_hiddenShown = false;
    CCallbackSlot m_slot;
    CWinTimer m_slowTimer{c_slowTime};
    CFolderLister m_lister; // goes first: its answers come to the nodes
};

} // namespace CommonUI
