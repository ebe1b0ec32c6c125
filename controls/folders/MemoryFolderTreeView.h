#pragma once

#include "FolderTree.h"

#include <vector>

namespace CommonUI
{

/// A tree without a display. It keeps the lines as a window does, by what it is told alone.
class COMMONUI_API CMemoryFolderTreeView : public CFolderTreeView
{
public:
    ~CMemoryFolderTreeView() override;

    void OnChildrenLeaving(const CFolderNode& node) override;
    void OnChildrenArrived(const CFolderNode& node) override;
    void OnNodeChanged(const CFolderNode& node) override;
    void OnSelected(const CFolderNode* node) override { m_selected = node; }

    /// The lines that are shown, one below the other: names, two blanks deeper for each level, "+" or "-" in
    /// front of what can be opened or closed, the state behind it where it is not read, and "<" behind the
    /// selected one.
    CStr GetText() const;

private:
    struct SLine {
        const CFolderNode* node;
        CStr name;
        bool expanded;
        bool canExpand;
        CFolderNode::EState state;
    };

    static SLine MakeLine(const CFolderNode& node);
    std::vector<SLine>::iterator Find(const CFolderNode& node);

    std::vector<SLine> m_lines; // of all nodes, also below closed ones, each behind its parent
    const CFolderNode* m_selected = nullptr;
};

} // namespace CommonUI
