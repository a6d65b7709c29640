// The way through all nodes of a tree, depth first and around at both ends. `Tree` walks as CTreeCtrl does.
#pragma once

#include "platform/window/TreeCtrl.h"

// The deepest last node below `item`, or of the whole tree for the null one; `item` itself if nothing is below it.
template <class Tree>
HTREEITEM DeepestLastItem(const Tree& tree, HTREEITEM item)
{
    HTREEITEM child = item ? tree.GetChildItem(item) : tree.GetRootItem();
    while (child)
    {
        item = child;
        if (const HTREEITEM sibling = tree.GetNextSiblingItem(item))
            child = sibling;
        else
            child = tree.GetChildItem(item);
    }
    return item;
}

// The first child, else the next sibling of the node or of the nearest ancestor that has one, else the first node.
// Null in an empty tree.
template <class Tree>
HTREEITEM NextTreeItem(const Tree& tree, HTREEITEM item)
{
    if (!item)
        return tree.GetRootItem();
    if (const HTREEITEM child = tree.GetChildItem(item))
        return child;
    for (; item; item = tree.GetParentItem(item))
    {
        if (const HTREEITEM sibling = tree.GetNextSiblingItem(item))
            return sibling;
    }
    return tree.GetRootItem();
}

// The deepest last node below the previous sibling, else the parent, else the last node of the whole tree.
template <class Tree>
HTREEITEM PrevTreeItem(const Tree& tree, HTREEITEM item)
{
    if (!item)
        return DeepestLastItem(tree, {});
    if (const HTREEITEM sibling = tree.GetPrevSiblingItem(item))
        return DeepestLastItem(tree, sibling);
    const HTREEITEM parent = tree.GetParentItem(item);
    return parent ? parent : DeepestLastItem(tree, {});
}
