#ifndef SHR_BTREENODE_H
#define SHR_BTREENODE_H

#include "containers/shr_COW.h"

template<class K, class V> class shr_Btree;
template<class K, class V> class shr_BtreeIterator;

/// One entry of a tree. It owns the handles on its children; the children themselves may be shared with the
/// nodes of other trees. References to key and value stay good until the node is unshared, removed or
/// destroyed.
template<class K, class V> class shr_BtreeNode
{
public:
    using Handle = shr_COW<shr_BtreeNode, shr_Direct>;

    shr_BtreeNode(const K& key, const V& value)
        : m_value(value), m_key(key), m_left(nullptr), m_right(nullptr), m_maxDepth(0)
    {
    }
    /// Copies key and value and shares the children.
    shr_BtreeNode(const shr_BtreeNode& other)
        : m_value(other.m_value), m_key(other.m_key), m_left(nullptr), m_right(nullptr), m_maxDepth(other.m_maxDepth)
    {
        Children children;
        children.left = other.m_left ? new Handle(*other.m_left) : nullptr;
        children.right = other.m_right ? new Handle(*other.m_right) : nullptr;
        m_left = children.left;
        m_right = children.right;
        children.left = nullptr;
        children.right = nullptr;
    }
    ~shr_BtreeNode()
    {
        Discard(m_left);
        Discard(m_right);
    }
    shr_BtreeNode& operator=(const shr_BtreeNode&) = delete;

    const K& Key() const noexcept { return m_key; }
    const V& Value() const noexcept { return m_value; }
    V& Value() noexcept { return m_value; }

    /// 0 without children, otherwise one more than the greatest of the children's, as far as it was
    /// refreshed: a removal leaves it too great along the way to the entry that takes the removed one's
    /// place.
    int MaxDepth() const noexcept { return m_maxDepth; }
    const Handle* Left() const noexcept { return m_left; }
    const Handle* Right() const noexcept { return m_right; }

private:
    friend class shr_Btree<K, V>;
    friend class shr_BtreeIterator<K, V>;

    struct Children
    {
        Handle* left = nullptr;
        Handle* right = nullptr;
        ~Children()
        {
            delete left;
            delete right;
        }
    };

    // Deletes a handle, and if it is the last one, the tree below it. A loosely balanced tree may be deep, so
    // this must not recurse: left children are rotated up until there is none, then the node goes and its
    // right child is next. All that is rotated is owned by this handle alone.
    static void Discard(Handle* handle) noexcept
    {
        while (handle && handle->Count() == 1) {
            shr_BtreeNode& node = *handle->Ptr();
            if (Handle* const left = node.m_left) {
                if (left->Count() == 1) {
                    shr_BtreeNode& child = *left->Ptr();
                    node.m_left = child.m_right;
                    child.m_right = handle;
                    handle = left;
                } else {
                    node.m_left = nullptr;
                    delete left;
                }
            } else {
                Handle* const right = node.m_right;
                node.m_right = nullptr;
                delete handle;
                handle = right;
            }
        }
        delete handle;
    }

    // What a child adds to the balance: a child without children counts no more than none.
    static int depthOf(const Handle* child) noexcept { return child ? child->Ptr()->m_maxDepth : 0; }

    void refreshDepth() noexcept
    {
        const int left = m_left ? m_left->Ptr()->m_maxDepth + 1 : 0;
        const int right = m_right ? m_right->Ptr()->m_maxDepth + 1 : 0;
        m_maxDepth = left > right ? left : right;
    }

    V m_value;
    K m_key;
    Handle* m_left;
    Handle* m_right;
    int m_maxDepth;
};

#endif
