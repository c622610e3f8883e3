#ifndef SHR_BTREE_H
#define SHR_BTREE_H

#include "containers/shr_BtreeCompare.h"
#include "containers/shr_BtreeNode.h"

/// An ordered map with copy-on-write nodes: a binary tree, loosely balanced by single rotations. Copying a
/// tree is constant time (one handle and the default value); a write afterwards clones the nodes on the path
/// to the entry that it changes. Looking up through ConstFind touches no count. Keys are ordered by
/// BtreeCompare.
///
/// References to values are references into nodes: one from Find is good until the tree is next copied and
/// written, or its entry removed. Nothing here recurses, so a deep tree needs no deep stack.
template<class K, class V> class shr_Btree
{
public:
    using Node = shr_BtreeNode<K, V>;
    using Handle = typename Node::Handle;

    shr_Btree() : m_root(nullptr), m_size(0), m_default() {}
    shr_Btree(const shr_Btree& other) : m_root(nullptr), m_size(other.m_size), m_default(other.m_default)
    {
        m_root = other.m_root ? new Handle(*other.m_root) : nullptr;
    }
    ~shr_Btree() { Node::Discard(m_root); }

    /// Shares the other tree's nodes. Assigning from an empty tree lets go of the entries without releasing
    /// them: they live until the thread ends, so references to them stay good, and they count as holders of
    /// what they share. Use Clear to release them.
    shr_Btree& operator=(const shr_Btree& other)
    {
        if (this == &other) {
            return *this;
        }
        if (!other.m_root) {
            m_default = other.m_default;
            if (m_root) {
                keepUntilThreadEnds();
            }
            m_size = 0;
            return *this;
        }
        // The other tree may live in an entry of this one, so what is let go of goes last.
        Handle* const shared = new Handle(*other.m_root);
        try {
            const int size = other.m_size;
            m_default = other.m_default;
            m_size = size;
        } catch (...) {
            delete shared;
            throw;
        }
        if (m_root) {
            const Handle old(*m_root);
            *m_root = *shared;
            *shared = old;
            // The node that `old` holds is released below, where nothing recurses.
        } else {
            m_root = new Handle(*shared);
        }
        Node::Discard(shared);
        return *this;
    }

    /// A copy on the heap; the caller owns it.
    shr_Btree* Copy() const { return new shr_Btree(*this); }

    int Size() const noexcept { return m_size; }
    bool IsEmpty() const noexcept { return m_size == 0; }
    bool IsMember(const K& key) const { return ConstFind(key) != nullptr; }

    /// Adds an entry. If the key is there already the entry keeps its value and the result is false.
    bool InsertUnlessMember(const K& key, const V& value)
    {
        if (!m_root) {
            m_root = newHandle(key, value);
            m_size = 1;
            return true;
        }
        Path path;
        Handle** slot = &m_root;
        do {
            Node& node = (*slot)->Get();
            const int order = BtreeCompare(node.m_key, key);
            if (order == 0) {
                return false;
            }
            path.Append(slot);
            slot = order < 0 ? &node.m_left : &node.m_right;
        } while (*slot);
        *slot = newHandle(key, value);
        ++m_size;
        (*path.Last())->Ptr()->refreshDepth();
        balanceUp(path);
        return true;
    }

    /// Takes an entry out. @return false if there is none of that key
    bool Remove(const K& key)
    {
        if (!m_root) {
            return false;
        }
        Path path;
        Handle** slot = &m_root;
        for (;;) {
            Node& node = (*slot)->Get();
            const int order = BtreeCompare(node.m_key, key);
            if (order == 0) {
                break;
            }
            path.Append(slot);
            slot = order < 0 ? &node.m_left : &node.m_right;
            if (!*slot) {
                return false;
            }
        }
        path.Append(slot);
        takeOut(slot);
        --m_size;
        // The parent's depth first, then up from the child that has taken the place.
        if (Handle** const parent = path.BeforeLast()) {
            (*parent)->Ptr()->refreshDepth();
        }
        balanceUp(path);
        return true;
    }

    /// Removes and releases all entries; the default value stays.
    void Clear() noexcept
    {
        Handle* const old = m_root;
        m_root = nullptr;
        m_size = 0;
        Node::Discard(old);
    }

    /// The value that stands in for that of an unknown key.
    const V& DefaultValue() const noexcept { return m_default; }

    /// Greatest number of nodes below one another, counted, not taken from the nodes; 0 for an empty tree.
    int Depth() const
    {
        int depth = 0;
        walk([&depth](const Node&, int level) { depth = level > depth ? level : depth; });
        return depth;
    }

    /// Whether keys ascend, the size is that of the walk, and no node's depth is too small for those of its
    /// children; with `exactDepths`, which holds until the first removal, none too great either. Reads the
    /// whole tree.
    bool WellFormed(bool exactDepths = false) const
    {
        bool good = true;
        int seen = 0;
        const Node* before = nullptr;
        walk([&](const Node& node, int) {
            ++seen;
            if (before && BtreeCompare(before->m_key, node.m_key) <= 0) {
                good = false;
            }
            before = &node;
            const int left = node.m_left ? node.m_left->Ptr()->m_maxDepth + 1 : 0;
            const int right = node.m_right ? node.m_right->Ptr()->m_maxDepth + 1 : 0;
            const int depth = left > right ? left : right;
            if (exactDepths ? node.m_maxDepth != depth : node.m_maxDepth < depth) {
                good = false;
            }
        });
        return good && seen == m_size;
    }

    /// The handle on the root, null for an empty tree; for tests and measurements.
    const Handle* Root() const noexcept { return m_root; }

protected:
    /// The node of a key, or null, for writing: every node on the way to it is unshared, even if the key is
    /// absent.
    Node* Find(const K& key)
    {
        Handle* handle = m_root;
        while (handle) {
            Node& node = handle->Get();
            __builtin_prefetch(node.m_left);
            __builtin_prefetch(node.m_right);
            const int order = BtreeCompare(node.m_key, key);
            if (order == 0) {
                return &node;
            }
            handle = order < 0 ? node.m_left : node.m_right;
        }
        return nullptr;
    }

    /// The node of a key, or null, for reading: nothing is unshared, no count is touched.
    const Node* ConstFind(const K& key) const
    {
        const Handle* handle = m_root;
        while (handle) {
            const Node& node = handle->ConstGet();
            // One of the two is next. Fetching both while the keys are compared saves a wait at each level.
            __builtin_prefetch(node.m_left);
            __builtin_prefetch(node.m_right);
            const int order = BtreeCompare(node.m_key, key);
            if (order == 0) {
                return &node;
            }
            handle = order < 0 ? node.m_left : node.m_right;
        }
        return nullptr;
    }

    /// The default value for writing, for collections that hand it out in the place of a missing entry.
    V& Default() noexcept { return m_default; }

private:
    friend class shr_BtreeIterator<K, V>;

    // The slots from the root's down to the one in hand. All trees but very deep ones fit into the object
    // itself.
    class Path
    {
    public:
        Path() = default;
        ~Path()
        {
            if (m_slots != m_near) {
                delete[] m_slots;
            }
        }
        Path(const Path&) = delete;
        Path& operator=(const Path&) = delete;

        void Append(Handle** slot)
        {
            if (m_size == m_capacity) {
                Handle*** const more = new Handle**[static_cast<std::size_t>(m_capacity) * 2];
                for (int i = 0; i < m_size; ++i) {
                    more[i] = m_slots[i];
                }
                if (m_slots != m_near) {
                    delete[] m_slots;
                }
                m_slots = more;
                m_capacity *= 2;
            }
            m_slots[m_size++] = slot;
        }
        Handle** Last() const noexcept { return m_slots[m_size - 1]; }
        Handle** BeforeLast() const noexcept { return m_size > 1 ? m_slots[m_size - 2] : nullptr; }
        void Pop() noexcept { --m_size; }
        bool IsEmpty() const noexcept { return m_size == 0; }

    private:
        enum : int
        {
            Near = 48
        };
        Handle** m_near[Near];
        Handle*** m_slots = m_near;
        int m_size = 0;
        int m_capacity = Near;
    };

    static Handle* newHandle(const K& key, const V& value) { return new Handle(new Node(key, value)); }

    // Balances from the last slot of the path up to the root, refreshing the depth of each parent. A value
    // that cannot be copied stops the balancing, not the refreshing.
    void balanceUp(Path& path)
    {
        try {
            while (!path.IsEmpty()) {
                Handle** const slot = path.Last();
                if (*slot) {
                    (*slot)->Get();
                    balance(slot);
                }
                path.Pop();
                if (!path.IsEmpty()) {
                    (*path.Last())->Ptr()->refreshDepth();
                }
            }
        } catch (...) {
            for (path.Pop(); !path.IsEmpty(); path.Pop()) {
                (*path.Last())->Ptr()->refreshDepth();
            }
            throw;
        }
    }

    // One single rotation if the tree below the slot leans; its node is not shared. Zig-zags stay zig-zags.
    static void balance(Handle** slot)
    {
        Handle* const handle = *slot;
        Node& node = *handle->Ptr();
        const int lean = Node::depthOf(node.m_right) - Node::depthOf(node.m_left);
        if (lean >= 2) {
            Handle* const up = node.m_right;
            Node& child = up->Get();
            node.m_right = child.m_left;
            child.m_left = handle;
            node.refreshDepth();
            child.refreshDepth();
            *slot = up;
        } else if (lean < -1) {
            Handle* const up = node.m_left;
            Node& child = up->Get();
            node.m_left = child.m_right;
            child.m_right = handle;
            node.refreshDepth();
            child.refreshDepth();
            *slot = up;
        }
    }

    // Deletes the node of a slot and puts in its place its only child or, with two, its successor. The node
    // is not shared. Of the depths on the way to the successor only the one above it is refreshed.
    static void takeOut(Handle** slot)
    {
        Handle* const gone = *slot;
        Node& node = *gone->Ptr();
        Handle* instead;
        if (!node.m_right) {
            instead = node.m_left;
        } else if (!node.m_left) {
            instead = node.m_right;
        } else {
            instead = node.m_right;
            Node* above = &node;
            Node* successor = &instead->Get();
            while (successor->m_left) {
                above = successor;
                instead = successor->m_left;
                successor = &instead->Get();
            }
            if (above != &node) {
                above->m_left = successor->m_right;
                successor->m_right = node.m_right;
                above->refreshDepth();
            }
            successor->m_left = node.m_left;
            successor->refreshDepth();
        }
        node.m_left = nullptr;
        node.m_right = nullptr;
        *slot = instead;
        delete gone;
    }

    // In order, with the number of nodes down to each; its stack is on the heap.
    template<class Visit> void walk(Visit visit) const
    {
        struct Step
        {
            const Handle* handle;
            int level;
            Step* next;
        };
        struct Stack
        {
            Step* top = nullptr;
            ~Stack()
            {
                while (top) {
                    pop();
                }
            }
            void push(const Handle* handle, int level) { top = new Step{handle, level, top}; }
            void pop()
            {
                Step* const old = top;
                top = old->next;
                delete old;
            }
        } stack;
        const Handle* handle = m_root;
        int level = 1;
        while (handle || stack.top) {
            if (handle) {
                stack.push(handle, level);
                handle = handle->ConstGet().m_left;
                ++level;
            } else {
                const Node& node = stack.top->handle->ConstGet();
                level = stack.top->level + 1;
                stack.pop();
                visit(node, level - 1);
                handle = node.m_right;
            }
        }
    }

    void keepUntilThreadEnds()
    {
        struct Kept
        {
            Handle* handle;
            Kept* next;
        };
        struct All
        {
            Kept* first = nullptr;
            ~All()
            {
                while (Kept* const kept = first) {
                    first = kept->next;
                    Node::Discard(kept->handle);
                    delete kept;
                }
            }
        };
        static thread_local All all;
        all.first = new Kept{m_root, all.first};
        m_root = nullptr;
    }

    Handle* m_root;
    int m_size;
    V m_default;
};

#endif
