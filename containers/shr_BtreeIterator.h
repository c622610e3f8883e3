#ifndef SHR_BTREEITERATOR_H
#define SHR_BTREEITERATOR_H

#include "containers/shr_Btree.h"

/// Walks the entries of a tree in the order of their keys, either way. It borrows the tree, which must
/// neither change nor die meanwhile; it unshares nothing. It is finished until First or Last is called, and
/// again when it is moved beyond either end.
template<class K, class V> class shr_BtreeIterator
{
public:
    using Node = shr_BtreeNode<K, V>;

    explicit shr_BtreeIterator(const shr_Btree<K, V>& tree) : m_tree(&tree), m_top(nullptr) {}
    shr_BtreeIterator(const shr_BtreeIterator& other) : m_tree(other.m_tree), m_top(nullptr)
    {
        try {
            Cell** end = &m_top;
            for (const Cell* cell = other.m_top; cell; cell = cell->next) {
                *end = new Cell{cell->handle, nullptr};
                end = &(*end)->next;
            }
        } catch (...) {
            clear();
            throw;
        }
    }
    shr_BtreeIterator& operator=(const shr_BtreeIterator& other)
    {
        shr_BtreeIterator copy(other);
        Cell* const top = m_top;
        m_tree = copy.m_tree;
        m_top = copy.m_top;
        copy.m_top = top;
        return *this;
    }
    ~shr_BtreeIterator() { clear(); }

    void First()
    {
        clear();
        pushLeft(m_tree->m_root);
    }
    void Last()
    {
        clear();
        pushRight(m_tree->m_root);
    }
    /// Without effect on a finished iterator.
    void Next()
    {
        if (!m_top) {
            return;
        }
        if (const Handle* const right = m_top->handle->ConstGet().m_right) {
            pushRightward(right);
            return;
        }
        const Handle* popped;
        do {
            popped = pop();
        } while (m_top && m_top->handle->ConstGet().m_right == popped);
    }
    void Previous()
    {
        if (!m_top) {
            return;
        }
        if (const Handle* const left = m_top->handle->ConstGet().m_left) {
            push(left);
            pushRight(left->ConstGet().m_right);
            return;
        }
        const Handle* popped;
        do {
            popped = pop();
        } while (m_top && m_top->handle->ConstGet().m_left == popped);
    }

    bool IsDone() const noexcept { return !m_top; }
    /// The entry; the iterator must not be finished. Good as long as the tree leaves it alone.
    const Node& Current() const noexcept { return m_top->handle->ConstGet(); }
    const K& CurrentKey() const noexcept { return Current().Key(); }
    const V& CurrentValue() const noexcept { return Current().Value(); }

private:
    using Handle = typename Node::Handle;

    struct Cell
    {
        const Handle* handle;
        Cell* next;
    };

    void push(const Handle* handle) { m_top = new Cell{handle, m_top}; }
    const Handle* pop() noexcept
    {
        Cell* const cell = m_top;
        const Handle* const handle = cell->handle;
        m_top = cell->next;
        delete cell;
        return handle;
    }
    void pushLeft(const Handle* handle)
    {
        for (; handle; handle = handle->ConstGet().m_left) {
            push(handle);
        }
    }
    void pushRight(const Handle* handle)
    {
        for (; handle; handle = handle->ConstGet().m_right) {
            push(handle);
        }
    }
    void pushRightward(const Handle* right)
    {
        push(right);
        pushLeft(right->ConstGet().m_left);
    }
    void clear() noexcept
    {
        while (m_top) {
            pop();
        }
    }

    const shr_Btree<K, V>* m_tree;
    Cell* m_top;
};

#endif
