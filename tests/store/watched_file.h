#ifndef WATCHED_FILE_H
#define WATCHED_FILE_H

#include "platform/store/fio_File.h"

#include <string>
#include <vector>

/// A file that one process saves again and again while others read it.

class sample_Block : public pcl_Class<sample_Block>
{
public:
    static constexpr const char* className = "sample_Block";
    static constexpr unsigned classId = 0x7f000020;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("number", self.m_number);
        visit("values", self.m_values);
    }

    int m_number = 0;
    pcl_Array<int> m_values;
};

/// Every part of a state tells its number: the root, its array, the last entry of the list, how long the list is, and
/// an object that each save replaces.
class sample_Watched : public pcl_Class<sample_Watched>
{
public:
    static constexpr const char* className = "sample_Watched";
    static constexpr unsigned classId = 0x7f000021;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("number", self.m_number);
        visit("values", self.m_values);
        visit("blocks", self.m_blocks);
        visit("middle", self.m_middle);
        visit("current", self.m_current);
    }

    int m_number = 0;
    pcl_Array<int> m_values;
    mrp_Container<sample_Block> m_blocks;
    mrp_Container<sample_Block> m_middle;
    lnk_ShortCut<sample_Block> m_current;
};

constexpr int watchedValueCount = 16 * 1024;
constexpr int bulkBlocksBetweenSaves = 4;

inline sample_Block blockOf(int number)
{
    sample_Block block;
    block.m_number = number;
    const std::vector<int> values(watchedValueCount, number);
    block.m_values.assign(values.data(), watchedValueCount);
    return block;
}

inline void makeWatchedFile(const std::string& path)
{
    const fio_File file = fio_File::Create(path.c_str());
    sample_Watched root;
    root.m_blocks = mrp_Container<sample_Block>::create(file.body());
    root.m_middle = mrp_Container<sample_Block>::create(file.body());
    root.m_current = lnk_ShortCut<sample_Block>::create(file.body(), blockOf(0));
    file.body()->setRootObject(lnk_ShortCut<sample_Watched>::create(file.body(), root).id());
    file.body()->save();
}

inline lnk_ShortCut<sample_Watched> watchedRoot(const fio_File& file)
{
    return lnk_ShortCut<sample_Watched>(file.body(), file.body()->rootObject());
}

/// Where the entry of a state goes in the list of those before it: here and there.
inline int placeOf(int number) { return number * 7919 % 1009 % number; }

inline void writeState(const fio_File& file, int number)
{
    const auto ref = watchedRoot(file);
    const auto root = ref.fetchWritable();
    root->m_number = number;
    const std::vector<int> values(watchedValueCount, number);
    root->m_values.assign(values.data(), watchedValueCount);
    for (int i = 0; i < bulkBlocksBetweenSaves; ++i) {
        sample_Block block = blockOf(number);
        block.m_values.toDisk(file.body());
        root->m_blocks.append(std::to_string(number), lnk_ShortCut<sample_Block>::create(file.body(), block));
    }
    root->m_middle.insert(placeOf(number), std::to_string(number), root->m_current);
    const auto current = root->m_current.fetchWritable();
    *current = blockOf(number);
    root->m_current.replace(current);
    ref.replace(root);
    file.body()->save();
}

#endif
