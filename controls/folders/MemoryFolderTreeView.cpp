#include "controls/folders/MemoryFolderTreeView.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

std::size_t GetDepth(const CFolderNode& node)
{
    std::size_t depth = 0;
    for (const CFolderNode* above = node.GetParent(); above && above->GetParent(); above = above->GetParent())
        ++depth;
    return depth;
}

const char16_t* GetStateText(CFolderNode::EState state)
{
    switch (state) {
    case CFolderNode::EState::Reading:
        return u" reading";
    case CFolderNode::EState::Slow:
        return u" slow";
    case CFolderNode::EState::Failed:
        return u" failed";
    case CFolderNode::EState::Unread:
    case CFolderNode::EState::Read:
        break;
    }
    return u"";
}

} // namespace

CMemoryFolderTreeView::~CMemoryFolderTreeView() = default;

CMemoryFolderTreeView::SLine CMemoryFolderTreeView::MakeLine(const CFolderNode& node)
{
    return {&node, node.GetName(), node.IsExpanded(), node.CanExpand(), node.GetState()};
}

std::vector<CMemoryFolderTreeView::SLine>::iterator CMemoryFolderTreeView::Find(const CFolderNode& node)
{
    return std::ranges::find(m_lines, &node, &SLine::node);
}

void CMemoryFolderTreeView::OnChildrenLeaving(const CFolderNode& node)
{
    for (std::size_t i = 0; i < node.GetChildCount(); ++i) {
        OnChildrenLeaving(node.GetChild(i));
        if (const auto line = Find(node.GetChild(i)); line != m_lines.end())
            m_lines.erase(line);
    }
}

void CMemoryFolderTreeView::OnChildrenArrived(const CFolderNode& node)
{
    auto place = Find(node);
    place = place == m_lines.end() ? place : place + 1;
    for (std::size_t i = 0; i < node.GetChildCount(); ++i)
        place = m_lines.insert(place, MakeLine(node.GetChild(i))) + 1;
    for (std::size_t i = 0; i < node.GetChildCount(); ++i)
        OnChildrenArrived(node.GetChild(i));
}

void CMemoryFolderTreeView::OnNodeChanged(const CFolderNode& node)
{
    if (const auto line = Find(node); line != m_lines.end())
        *line = MakeLine(node);
}

CStr CMemoryFolderTreeView::GetText() const
{
    CStr text;
    std::size_t closed = CStr::npos; // the depth of the closed node below which nothing is shown
    for (const SLine& line : m_lines) {
        const std::size_t depth = GetDepth(*line.node);
        if (depth > closed)
            continue;
        closed = line.expanded ? CStr::npos : depth;
        text += CStr(2 * depth, u' ') + (line.canExpand ? (line.expanded ? u"-" : u"+") : u" ");
        text += line.name + GetStateText(line.state) + (line.node == m_selected ? u" <\n" : u"\n");
    }
    return text;
}

} // namespace CommonUI
