#ifndef RESULT_MODEL_H
#define RESULT_MODEL_H

#include "call_results.h"
#include "test_files.h"
#include "yld.h"

#include <initializer_list>
#include <string>

inline constexpr const char* incompatible =
    "Fields are not compatible. They are either associated with different structural "
    "models or have incompatible attributes.";
inline constexpr const char* undefinedWarning = "Warning: Undefined position for historyPoint.\n";

inline yld_Sequence<int> ints(std::initializer_list<int> values)
{
    return yld_Sequence<int>(values.begin(), static_cast<int>(values.size()));
}

inline yld_Sequence<float> floats(std::initializer_list<float> values)
{
    return yld_Sequence<float>(values.begin(), static_cast<int>(values.size()));
}

inline yld_Sequence<yld_Sequence<float>> rows(std::initializer_list<std::initializer_list<float>> values)
{
    yld_Sequence<yld_Sequence<float>> all;
    for (const auto& row : values) all.append(floats(row));
    return all;
}

inline std::string listed(const yld_Sequence<int>& numbers)
{
    std::string text;
    for (int i = 0; i < numbers.size(); ++i) text += (i ? " " : "") + std::to_string(numbers[i]);
    return text;
}

/// A quarter turn about the third axis.
inline yld_Sequence<yld_Sequence<float>> turnedSystem() { return rows({{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}); }

inline yld_Sequence<yld_Sequence<int>> connectivity(std::initializer_list<std::initializer_list<int>> values)
{
    yld_Sequence<yld_Sequence<int>> all;
    for (const auto& row : values) all.append(ints(row));
    return all;
}

/// Rows of one component each, counting up.
inline yld_Sequence<yld_Sequence<float>> counted(int count, float first = 1.0F)
{
    yld_Sequence<yld_Sequence<float>> all;
    for (int i = 0; i < count; ++i) all.append(floats({first + static_cast<float>(i)}));
    return all;
}

inline yld_Sequence<yld_String> texts(std::initializer_list<const char*> values)
{
    yld_Sequence<yld_String> all;
    for (const char* value : values) all.append(yld_String(value));
    return all;
}

inline yld_Sequence<yld_Enum::yld_InvariantEnum> invariants(std::initializer_list<yld_Enum::yld_InvariantEnum> values)
{
    yld_Sequence<yld_Enum::yld_InvariantEnum> all;
    for (const auto value : values) all.append(value);
    return all;
}

inline std::string joined(const yld_Sequence<yld_String>& list)
{
    std::string text;
    for (int i = 0; i < list.size(); ++i) text += (i ? "," : "") + std::string(list[i].cStr());
    return text;
}

/// A database with one placed part:
///
///     nodes 10, 20 ... 120 in three layers of four; hexahedra 101, 102 between the layers; tetrahedra 7, 5 on the
///     bottom; shells 301, 302 with the section points "bottom" and "top"
///
class ResultModel : public testing::Test
{
protected:
    ResultModel() { yld_initializeAPI(); }
    ~ResultModel() override { yld_finalizeAPI(); }

    void SetUp() override
    {
        m_path = m_folder.file("results.yld");
        m_yld = &Yld("results", "title", "description", m_path.c_str());
        yld_Part& part = m_yld->Part("block", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        yld_Sequence<int> labels;
        yld_Sequence<yld_Sequence<float>> coordinates;
        const float x[] = {0, 1, 1, 0};
        const float y[] = {0, 0, 1, 1};
        for (int i = 0; i < 12; ++i) {
            labels.append(10 * (i + 1));
            coordinates.append(floats({x[i % 4], y[i % 4], static_cast<float>(i / 4)}));
        }
        part.addNodes(labels, coordinates);
        part.addElements(ints({101, 102}),
                         connectivity({{10, 20, 30, 40, 50, 60, 70, 80}, {50, 60, 70, 80, 90, 100, 110, 120}}), "HEX8");
        part.addElements(ints({7, 5}), connectivity({{10, 20, 30, 50}, {20, 30, 40, 60}}), "TET4");
        yld_SectionCategory& shell = m_yld->SectionCategory("shell", "a shell");
        shell.SectionPoint(1, "bottom");
        shell.SectionPoint(2, "top");
        part.addElements(ints({301, 302}), connectivity({{10, 20, 30, 40}, {50, 60, 70, 80}}), "SHELL4", "", shell);
        m_yld->rootAssembly().Instance("block-1", part);
        m_yld->Step("Step-1", "first", yld_Enum::TIME, 1.0);
    }

    void TearDown() override
    {
        if (m_yld) m_yld->close();
    }

    yld_Step& step() { return m_yld->steps().get("Step-1"); }
    yld_Instance& instance() { return m_yld->rootAssembly().instances().get("block-1"); }

    /// Saves, closes and opens the database again.
    void reopen()
    {
        m_yld->save();
        m_yld->close();
        m_yld = nullptr;
        m_yld = &openYld(m_path.c_str(), false);
    }

    const yld_FieldOutput& field(const char* name, int frame = 0)
    {
        return step().frames(frame).fieldOutputs().constGet(name);
    }

    ScratchFolder m_folder;
    std::string m_path;
    yld_Yld* m_yld = nullptr;
};

#endif
