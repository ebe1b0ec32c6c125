#include "controls/folders/FolderTree.h"

#include "controls/lists/TextOrder.h"

#include <algorithm>
#include <map>
#include <utility>

namespace CommonUI
{

using EState = CFolderNode::EState;

namespace
{

// Whoever has a constant node of a tree got it from the tree.
CFolderNode& Mutable(const CFolderNode& node)
{
    return const_cast<CFolderNode&>(node);
}

bool IsWithin(const CFolderNode* node, const CFolderNode& ancestor)
{
    while (node && node != &ancestor)
        node = node->GetParent();
    return node != nullptr;
}

} // namespace

CFolderNode::CFolderNode(CFolderNode* parent, const CStr& name, const CStr& path)
    : m_parent(parent)
    , m_name(name)
    , m_path(path)
{
}

std::size_t CFolderNode::GetIndexInParent() const
{
    const auto isThis = [this](const auto& child) { return child.get() == this; };
    const auto& siblings = m_parent->m_children;
    return static_cast<std::size_t>(std::ranges::find_if(siblings, isThis) - siblings.begin());
}

CFolderTreeView::~CFolderTreeView()
{
    if (GetControl())
        GetControl()->SetView(nullptr);
}

void CFolderTreeView::OnChildrenLeaving(const CFolderNode&)
{
}

CFolderTree::CFolderTree(std::shared_ptr<const CFolderSource> source)
    : m_top(new CFolderNode(nullptr, {}, {}))
    , m_lister(std::move(source))
{
    m_slowTimer.SetCallback(*this, &CFolderTree::OnSlowTimer);
    AddRoots();
}

CFolderTree::~CFolderTree()
{
    SetView(nullptr);
}

void CFolderTree::AddRoots()
{
    for (const CStr& root : m_lister.GetSource().GetRoots())
        m_top->m_children.emplace_back(new CFolderNode(m_top.get(), root, root));
    m_top->m_state = EState::Read;
    m_top->m_expanded = true;
}

void CFolderTree::SetView(CFolderTreeView* view)
{
    if (GetView())
        GetView()->OnChildrenLeaving(*m_top);
    Link(*this, view);
    if (!view)
        return;
    if (m_top->GetChildCount() > 0)
        view->OnChildrenArrived(*m_top);
    view->OnSelected(m_selected);
}

void CFolderTree::SetState(CFolderNode& node, EState state)
{
    node.m_state = state;
    if (GetView())
        GetView()->OnNodeChanged(node);
}

void CFolderTree::Expand(const CFolderNode& node)
{
    const bool isKnown = node.m_state == EState::Read || node.m_request != 0;
    Mutable(node).m_expanded = true;
    if (isKnown)
        SetState(Mutable(node), node.m_state);
    else
        Request(Mutable(node));
}

void CFolderTree::Collapse(const CFolderNode& node)
{
    CFolderNode& closed = Mutable(node);
    m_way.clear();
    closed.m_expanded = false;
    if (closed.m_request != 0) // children that were there before a refresh still are, as far as anybody knows
        closed.m_state = closed.m_children.empty() ? EState::Unread : EState::Read;
    m_lister.Cancel(std::exchange(closed.m_request, 0));
    SetState(closed, closed.m_state);
}

void CFolderTree::Refresh(const CFolderNode& node)
{
    if (&node != m_top.get())
        Request(Mutable(node));
}

void CFolderTree::ShowHidden(bool show)
{
    if (std::exchange(m_hiddenShown, show) != show)
        for (const auto& root : m_top->m_children)
            RefreshRead(*root);
}

void CFolderTree::RefreshRead(CFolderNode& node)
{
    for (const auto& child : node.m_children)
        RefreshRead(*child);
    if (node.m_state == EState::Read)
        Request(node);
}

void CFolderTree::CancelBelow(const CFolderNode& node)
{
    for (const auto& child : node.m_children)
        CancelBelow(*child);
    m_lister.Cancel(node.m_request);
}

void CFolderTree::Request(CFolderNode& node)
{
    m_lister.Cancel(node.m_request);
    node.m_request =
        m_lister.List(node.m_path, [this, &node](const SFolderListing& listing) { OnListed(node, listing); });
    // The time counts from the last request: a drive that answers others in between is not slow.
    m_slowTimer.SetRunning(false);
    m_slowTimer.SetRunning(true);
    SetState(node, EState::Reading);
}

void CFolderTree::OnListed(CFolderNode& node, const SFolderListing& listing)
{
    node.m_request = 0;
    node.m_error = listing.error;
    const CWatch watch(*this);
    if (listing.error.IsEmpty())
        SetChildren(node, listing.folders);
    if (watch.IsGone())
        return;
    SetState(node, listing.error.IsEmpty() ? EState::Read : EState::Failed);
    GoOn();
}

void CFolderTree::OnSlowTimer(CBaseTimer&)
{
    m_slowTimer.SetRunning(false);
    MarkSlow(*m_top);
}

void CFolderTree::MarkSlow(CFolderNode& node)
{
    for (const auto& child : node.m_children)
        MarkSlow(*child);
    if (node.m_state == EState::Reading)
        SetState(node, EState::Slow);
}

void CFolderTree::OnUserSelected(const CFolderNode* node)
{
    m_way.clear();
    Select(node);
}

void CFolderTree::Select(const CFolderNode* node)
{
    if (std::exchange(m_selected, node) == node)
        return;
    const CStr path = node ? node->m_path : CStr();
    const CWatch watch(*this);
    if (GetView())
        GetView()->OnSelected(node);
    if (const auto closure = watch.IsGone() ? nullptr : m_slot.Share<void, const CStr&>())
        closure->Invoke(path);
}

bool CFolderTree::GoTo(const CStr& path)
{
    std::vector<CStr> way = m_lister.GetSource().SplitPath(path);
    if (way.empty())
        return false;
    m_way = std::move(way);
    m_asked = nullptr;
    GoOn();
    return true;
}

// Goes as far as is known, and asks for what is not.
void CFolderTree::GoOn()
{
    if (m_way.empty())
        return;
    CFolderNode* node = FindChild(*m_top, m_way.front());
    for (std::size_t i = 1; i < m_way.size(); ++i) {
        if (node->m_request != 0)
            return;
        const bool isUnknown = node->m_state != EState::Read && std::exchange(m_asked, node) != node;
        if (isUnknown || !node->m_expanded)
            Expand(*node);
        if (isUnknown)
            return;
        CFolderNode* const child = FindChild(*node, m_way[i]);
        if (!child)
            break;
        node = child;
    }
    m_way.clear();
    Select(node);
}

CFolderNode* CFolderTree::FindChild(const CFolderNode& node, const CStr& name) const
{
    for (const auto& child : node.m_children)
        if (m_lister.GetSource().IsSameName(child->m_name, name))
            return child.get();
    return nullptr;
}

// Folders in the order of people, without those that are not to be shown.
std::vector<CStr> CFolderTree::ArrangeNames(const std::vector<SFolder>& folders) const
{
    std::vector<CStr> names;
    for (const SFolder& folder : folders)
        if (!folder.hidden || m_hiddenShown)
            names.push_back(folder.name);
    std::ranges::sort(
        names, [](const CStr& one, const CStr& other) { return std::is_lt(CompareNatural(one, other)); });
    return names;
}

void CFolderTree::SetChildren(CFolderNode& node, const std::vector<SFolder>& folders)
{
    const std::vector<CStr> names = ArrangeNames(folders);
    const auto isSame = [](const CStr& name, const auto& child) { return name == child->GetName(); };
    if (std::ranges::equal(names, node.m_children, isSame))
        return;

    if (GetView() && !node.m_children.empty())
        GetView()->OnChildrenLeaving(node);
    std::map<CStr, std::unique_ptr<CFolderNode>> before;
    for (auto& child : node.m_children)
        before.emplace(child->m_name, std::move(child));
    node.m_children.clear();
    for (const CStr& name : names) {
        auto known = before.extract(name);
        if (known)
            node.m_children.push_back(std::move(known.mapped()));
        else
            node.m_children.emplace_back(
                new CFolderNode(&node, name, m_lister.GetSource().JoinPath(node.m_path, name)));
    }
    bool isSelectedGone = false;
    for (const auto& [name, gone] : before) {
        CancelBelow(*gone);
        isSelectedGone |= IsWithin(m_selected, *gone);
    }
    if (isSelectedGone)
        m_selected = nullptr;
    if (GetView() && !names.empty())
        GetView()->OnChildrenArrived(node);
    if (isSelectedGone)
        Select(&node);
}

} // namespace CommonUI
