#ifndef WALK_EVERYTHING_H
#define WALK_EVERYTHING_H

#include "platform/store/fio_File.h"

#include <deque>
#include <functional>
#include <set>
#include <utility>

/// Reads everything in a file that can be reached from an object: each attribute, each entry of each container, each
/// value. Of classes that do not stand, and of those that only their own fetch can tell, the references. Every object
/// is visited once, so circles come to an end; what is still to visit waits in a list, so no chain is too long.
class WalkEverything
{
public:
    /// Opens the file and walks it from its root, an object of class T.
    template<class T> static WalkEverything from(const std::string& path, bool forWriting = false)
    {
        WalkEverything walk;
        const fio_File file = fio_File::Open(path.c_str(), forWriting, true);
        walk.reach(lnk_ShortCut<T>(file.body(), file.body()->rootObject()));
        while (!walk.m_waiting.empty()) {
            const auto next = std::move(walk.m_waiting.front());
            walk.m_waiting.pop_front();
            next();
        }
        return walk;
    }

    long long objects() const { return m_objects; }
    long long values() const { return m_values; }

private:
    template<class T> void reach(const lnk_ShortCut<T>& reference)
    {
        if constexpr (requires { T::classId; }) {
            if (reference.isNull() || !m_seen.insert({T::classId, reference.id()}).second) return;
            m_waiting.push_back([this, reference] {
                ++m_objects;
                const auto object = reference.fetch();
                T::attributes(*object, [walk = this](const char*, const auto& member) { walk->look(member); });
            });
        } else {
            m_sum += static_cast<double>(reference.id());
        }
    }
    template<class T> void look(const lnk_ShortCut<T>& reference) { reach(reference); }
    template<class T> void look(const mrp_Container<T>& container)
    {
        const int size = container.size();
        for (int i = 0; i < size; ++i) {
            m_characters += container.key(i).size();
            if (i % 64 == 0) m_characters += static_cast<std::size_t>(container.find(container.key(i)));
            reach(container.at(i));
        }
    }
    template<class T> void look(const pcl_Array<T>& array)
    {
        if (array.isEmpty()) return;
        // First a part, which is read from the disk alone, then the whole.
        T last{};
        array.read(array.size() - 1, 1, &last);
        const T* values = array.data();
        for (long long i = 0; i < array.size(); ++i) m_sum += static_cast<double>(values[i]);
        m_values += array.size();
    }
    void look(const std::string& text) { m_characters += text.size(); }
    template<class T> void look(const std::vector<T>& list)
    {
        for (const auto& item : list) look(item);
    }
    template<class T>
    requires std::is_arithmetic_v<T>
    void look(T value) { m_sum += static_cast<double>(value); }

    std::deque<std::function<void()>> m_waiting;
    std::set<std::pair<unsigned, long long>> m_seen;
    long long m_objects = 0;
    long long m_values = 0;
    std::size_t m_characters = 0;
    double m_sum = 0.0;
};

#endif
