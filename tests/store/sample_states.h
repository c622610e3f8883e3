#ifndef SAMPLE_STATES_H
#define SAMPLE_STATES_H

#include "platform/store/fio_File.h"

#include <cstdint>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

/// Databases whose whole content follows from a seed and the number of the state that was saved last: whoever finds
/// such a file can tell value by value whether it is whole, and nobody has to remember what was written.

class sample_Leaf : public pcl_Class<sample_Leaf>
{
public:
    static constexpr const char* className = "sample_Leaf";
    static constexpr unsigned classId = 0x7f000010;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("number", self.m_number);
        visit("generation", self.m_generation);
        visit("name", self.m_name);
        visit("list", self.m_list);
        visit("values", self.m_values);
        visit("leaves", self.m_leaves);
    }

    int m_number = 0;
    int m_generation = 0;
    std::string m_name;
    std::vector<int> m_list;
    pcl_Array<float> m_values;
    mrp_Container<sample_Leaf> m_leaves;
};

class sample_Book : public pcl_Class<sample_Book>
{
public:
    static constexpr const char* className = "sample_Book";
    static constexpr unsigned classId = 0x7f000011;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("number", self.m_number);
        visit("wide", self.m_wide);
        visit("real", self.m_real);
        visit("title", self.m_title);
        visit("texts", self.m_texts);
        visit("reals", self.m_reals);
        visit("labels", self.m_labels);
        visit("values", self.m_values);
        visit("precise", self.m_precise);
        visit("leaves", self.m_leaves);
        visit("first", self.m_first);
    }

    int m_number = -1;
    long long m_wide = 0;
    double m_real = 0.0;
    std::string m_title;
    std::vector<std::string> m_texts;
    std::vector<double> m_reals;
    pcl_Array<int> m_labels;
    pcl_Array<float> m_values;
    pcl_Array<double> m_precise;
    mrp_Container<sample_Leaf> m_leaves;
    lnk_ShortCut<sample_Leaf> m_first;
};

/// Value i of an array that was made in some generation; 22 bits, so that every kind of number holds it exactly.
inline int sampleValue(int salt, int generation, long long i)
{
    std::uint64_t x = static_cast<std::uint64_t>(i) * 0x9e3779b97f4a7c15ull +
                      static_cast<std::uint64_t>(salt) * 0xc2b2ae3d27d4eb4full + static_cast<std::uint64_t>(generation);
    x ^= x >> 29;
    x *= 0xbf58476d1ce4e5b9ull;
    return static_cast<int>(x >> 42);
}

struct SampleArray
{
    int salt = 0;
    int generation = 0;
    long long count = 0;

    template<class T> void fill(T* into, long long from, long long to) const
    {
        for (long long i = from; i < to; ++i) *into++ = static_cast<T>(sampleValue(salt, generation, i));
    }
    template<class T> void write(pcl_Array<T>& array) const
    {
        fio_Buffer buffer(static_cast<std::size_t>(count) * sizeof(T));
        fill(reinterpret_cast<T*>(buffer.writable()), 0, count);
        array.adopt(buffer);
    }
    template<class T> void check(const pcl_Array<T>& array, const char* what) const
    {
        if (array.size() != count) {
            throw std::runtime_error(std::string(what) + " has " + std::to_string(array.size()) + " values, not " +
                                     std::to_string(count));
        }
        const T* values = count > 0 ? array.data() : nullptr;
        for (long long i = 0; i < count; ++i) {
            if (values[i] != static_cast<T>(sampleValue(salt, generation, i))) {
                throw std::runtime_error(std::string(what) + " differs at value " + std::to_string(i) + " of " +
                                         std::to_string(count));
            }
        }
    }
};

/// What a database holds after the state of some number, and how one state becomes the next.
class SampleStates
{
public:
    /// @param largest  bytes of the largest array
    SampleStates(unsigned seed, long long largest) : m_seed(seed), m_largest(largest) {}

    int number() const { return m_number; }

    /// Makes the empty root in a new file.
    static void plant(const fio_File& file)
    {
        sample_Book book;
        book.m_leaves = mrp_Container<sample_Leaf>::create(file.body());
        file.body()->setRootObject(lnk_ShortCut<sample_Book>::create(file.body(), book).id());
    }

    /// Goes on by one state: here, and in the file where one is given.
    void advance(const fio_File* file)
    {
        ++m_number;
        change(file, static_cast<unsigned>(m_number));
    }
    /// Changes that are to be thrown away: as good as a state, but of no number. Leaves this object as it is.
    void scribble(const fio_File& file) const
    {
        SampleStates copy(*this);
        copy.m_number += 1000000;
        copy.change(&file, static_cast<unsigned>(copy.m_number));
    }
    void advanceTo(int number)
    {
        while (m_number < number) advance(nullptr);
    }

    static int numberIn(const fio_File& file)
    {
        const long long root = file.body()->rootObject();
        return root == 0 ? -1 : lnk_ShortCut<sample_Book>(file.body(), root).fetch()->m_number;
    }

    /// Raises std::runtime_error at the first part of the file that is not of this state.
    void check(const fio_File& file) const
    {
        const auto book = lnk_ShortCut<sample_Book>(file.body(), file.body()->rootObject()).fetch();
        demand(book->m_number == m_number, "the number of the state");
        demand(book->m_wide == wideOf(m_number), "the wide number");
        demand(book->m_real == realOf(m_number), "the real number");
        demand(book->m_title == titleOf(m_number), "the title");
        demand(book->m_texts == textsOf(m_number), "the list of texts");
        demand(book->m_reals == realsOf(m_number), "the list of numbers");
        m_labels.check(book->m_labels, "labels");
        m_values.check(book->m_values, "values");
        m_precise.check(book->m_precise, "precise");
        demand(book->m_leaves.size() == static_cast<int>(m_leaves.size()), "the number of leaves");
        for (int i = 0; i < book->m_leaves.size(); ++i) {
            const Leaf& expected = m_leaves[static_cast<std::size_t>(i)];
            demand(book->m_leaves.key(i) == nameOf(expected.number), "the key of a leaf");
            checkLeaf(*book->m_leaves.at(i).fetch(), expected);
        }
        demand(book->m_first.isNull() == m_leaves.empty(), "the reference");
        if (!m_leaves.empty()) checkLeaf(*book->m_first.fetch(), m_leaves.front());
    }

private:
    struct Leaf
    {
        int number = 0;
        int generation = 0;
        SampleArray values;
        std::vector<int> leaves; // their numbers
    };
    static constexpr std::size_t mostLeaves = 150;

    static void demand(bool holds, const char* what)
    {
        if (!holds) throw std::runtime_error(std::string(what) + " is of another state");
    }
    static std::string nameOf(int leaf) { return "leaf " + std::to_string(leaf); }
    static long long wideOf(int number) { return (static_cast<long long>(number) << 33) + 1; }
    static double realOf(int number) { return number / 3.0; }
    static std::string titleOf(int number)
    {
        return std::string(static_cast<std::size_t>(sampleValue(1, number, 0) % 300), 'x') + std::to_string(number);
    }
    static std::vector<std::string> textsOf(int number)
    {
        return {"", std::to_string(number), "a,b:" + titleOf(number)};
    }
    static std::vector<double> realsOf(int number)
    {
        return std::vector<double>(static_cast<std::size_t>(number % 7), number * 0.5);
    }
    static std::vector<int> listOf(int number, int generation)
    {
        return std::vector<int>(static_cast<std::size_t>((number + generation) % 5), generation);
    }

    static void checkLeaf(const sample_Leaf& leaf, const Leaf& expected)
    {
        demand(leaf.m_number == expected.number, "the number of a leaf");
        demand(leaf.m_generation == expected.generation, "the generation of a leaf");
        demand(leaf.m_name == nameOf(expected.number), "the name of a leaf");
        demand(leaf.m_list == listOf(expected.number, expected.generation), "the list of a leaf");
        expected.values.check(leaf.m_values, "the values of a leaf");
        demand(leaf.m_leaves.size() == static_cast<int>(expected.leaves.size()), "the leaves of a leaf");
        for (int i = 0; i < leaf.m_leaves.size(); ++i) {
            const int number = expected.leaves[static_cast<std::size_t>(i)];
            demand(leaf.m_leaves.key(i) == nameOf(number), "the key in a leaf");
            demand(leaf.m_leaves.at(i).fetch()->m_number == number, "the number in a leaf");
        }
    }

    // A size for an array: often small, at times none, at times just about a whole number of extents.
    static long long sizeFor(std::mt19937& random, long long largestBytes, long long width)
    {
        const long long extent = static_cast<long long>(fio_Database::extentBytes);
        const long long most = largestBytes / width;
        long long size = 0;
        switch (random() % 8) {
        case 0:
            break;
        case 1:
        case 2:
            size = random() % 100;
            break;
        case 3:
        case 4:
            size = random() % 10000;
            break;
        case 5:
        case 6:
            size = random() % 200000;
            break;
        default:
            size = random() % 4 == 0 ? extent * (1 + random() % 2) / width - 1 + random() % 3
                                     : static_cast<long long>(random()) % (most + 1);
        }
        return size < most ? size : most;
    }

    template<class T>
    void changeArray(std::mt19937& random, SampleArray& model, int salt, pcl_Array<T>* array,
                     const fio_File* file) const
    {
        const unsigned what = random() % 4;
        if (what == 0) return;
        if (what == 1) {
            const long long added = random() % 5000;
            if (array) model.fill(array->extend(added), model.count, model.count + added);
            model.count += added;
        } else {
            model = {salt, m_number, sizeFor(random, m_largest, sizeof(T))};
            if (array) model.write(*array);
        }
        // Some go to disk as they come, others wait for the save.
        if (random() % 2 == 0 && array) array->toDisk(file->body());
    }

    void change(const fio_File* file, unsigned number)
    {
        std::seed_seq seeds{m_seed, number};
        std::mt19937 random(seeds);
        std::shared_ptr<sample_Book> book;
        lnk_ShortCut<sample_Book> root;
        if (file) {
            root = lnk_ShortCut<sample_Book>(file->body(), file->body()->rootObject());
            book = root.fetchWritable();
            book->m_number = m_number;
            book->m_wide = wideOf(m_number);
            book->m_real = realOf(m_number);
            book->m_title = titleOf(m_number);
            book->m_texts = textsOf(m_number);
            book->m_reals = realsOf(m_number);
        }
        changeArray(random, m_labels, 1, book ? &book->m_labels : nullptr, file);
        changeArray(random, m_values, 2, book ? &book->m_values : nullptr, file);
        changeArray(random, m_precise, 3, book ? &book->m_precise : nullptr, file);

        // New leaves, at the end and in the middle.
        for (unsigned i = random() % 6; i > 0 && m_leaves.size() < mostLeaves; --i) {
            const bool atEnd = random() % 2 == 0;
            const std::size_t position = atEnd ? m_leaves.size() : random() % (m_leaves.size() + 1);
            Leaf leaf;
            leaf.number = m_nextLeaf++;
            leaf.generation = m_number;
            leaf.values = {leaf.number, m_number, sizeFor(random, m_largest / 100, sizeof(float))};
            if (book) {
                const auto ref = lnk_ShortCut<sample_Leaf>::create(file->body(), stored(leaf, file));
                if (atEnd) {
                    book->m_leaves.append(nameOf(leaf.number), ref);
                } else {
                    book->m_leaves.insert(static_cast<int>(position), nameOf(leaf.number), ref);
                }
            }
            m_leaves.insert(m_leaves.begin() + static_cast<std::ptrdiff_t>(position), leaf);
        }
        // Old leaves, changed: numbers, sometimes their values, and leaves of their own.
        for (unsigned i = m_leaves.empty() ? 0 : random() % 5; i > 0; --i) {
            const std::size_t position = random() % m_leaves.size();
            Leaf& leaf = m_leaves[position];
            leaf.generation = m_number;
            const bool replacesValues = random() % 2 == 0;
            if (replacesValues) leaf.values = {leaf.number, m_number, sizeFor(random, m_largest / 100, sizeof(float))};
            const bool grows = leaf.leaves.size() < 5;
            const bool atFront = random() % 2 == 0;
            const int child = grows ? m_nextLeaf++ : 0;
            if (grows) leaf.leaves.insert(atFront ? leaf.leaves.begin() : leaf.leaves.end(), child);
            if (!book) continue;
            const auto ref = book->m_leaves.at(static_cast<int>(position));
            const auto changed = ref.fetchWritable();
            changed->m_generation = leaf.generation;
            changed->m_list = listOf(leaf.number, leaf.generation);
            if (replacesValues) leaf.values.write(changed->m_values);
            if (grows) {
                if (!changed->m_leaves.isValid()) changed->m_leaves = mrp_Container<sample_Leaf>::create(file->body());
                sample_Leaf small;
                small.m_number = child;
                changed->m_leaves.insert(atFront ? 0 : changed->m_leaves.size(), nameOf(child),
                                         lnk_ShortCut<sample_Leaf>::create(file->body(), small));
            }
            ref.replace(changed);
        }
        if (book) {
            if (!m_leaves.empty()) book->m_first = book->m_leaves.at(0);
            root.replace(book);
        }
    }

    sample_Leaf stored(const Leaf& leaf, const fio_File* file) const
    {
        sample_Leaf object;
        object.m_number = leaf.number;
        object.m_generation = leaf.generation;
        object.m_name = nameOf(leaf.number);
        object.m_list = listOf(leaf.number, leaf.generation);
        leaf.values.write(object.m_values);
        if (leaf.number % 2 == 0) object.m_values.toDisk(file->body());
        return object;
    }

    unsigned m_seed;
    long long m_largest;
    int m_number = -1;
    int m_nextLeaf = 1;
    SampleArray m_labels;
    SampleArray m_values;
    SampleArray m_precise;
    std::vector<Leaf> m_leaves;
};

#endif
