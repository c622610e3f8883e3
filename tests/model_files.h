#ifndef MODEL_FILES_H
#define MODEL_FILES_H

#include "platform/sto/sto_Model.h"
#include "platform/store/fio_File.h"
#include "test_files.h"
#include "yld/impl/model/yld_Mesh.h"
#include "yld_Assembly.h"
#include "yld_Exception.h"
#include "yld_Part.h"

#include <initializer_list>
#include <memory>

/// A model in a file of its own, with parts and assembly as a database reads them.
class ModelFile
{
public:
    ModelFile()
    {
        opened = fio_File::Create(path().c_str());
        file = opened.body();
        model = sto_Model::create(file, "Default Model");
        file->setRootObject(model.shortCut().id());
        read();
    }
    ~ModelFile() { file->close(); }

    std::string path() const { return folder.file("model.yld"); }

    /// Saves, closes, opens again and reads; everything handed out before is of the closed file.
    void reopen()
    {
        file->save();
        file->close();
        opened = fio_File::Open(path().c_str(), true, true);
        file = opened.body();
        model = sto_Model(lnk_ShortCut<mshK_Model>(file, file->rootObject()));
        read();
    }

    yld_Part& part(const char* name) { return parts->get(yld_String(name)); }
    yld_Instance& instance(const char* name) { return assembly->instances().get(yld_String(name)); }

    ScratchFolder folder;
    fio_File opened;
    std::shared_ptr<fio_FileBody> file;
    sto_Model model;
    std::unique_ptr<yld_PartRepository> parts;
    std::unique_ptr<yld_Assembly> assembly;

private:
    void read()
    {
        parts = std::make_unique<yld_PartRepository>(model);
        for (int i = 0; i < model.numParts(); ++i) {
            const sto_Part stored = model.part(i);
            const yld_String name(model.partName(i).c_str());
            const yld_MeshHandle mesh(stored.hasMesh() ? new yld_Mesh(stored.mesh(), name, false) : new yld_Mesh(name));
            const auto space = static_cast<yld_Enum::yld_DimensionEnum>(stored.space() - 2000);
            parts->insert(name, yld_Part(name, space, yld_Enum::DEFORMABLE_BODY, stored, mesh));
        }
        const sto_Assembly stored = model.rootAssembly();
        assembly = std::make_unique<yld_Assembly>(yld_String(stored.name().c_str()), stored, model);
        assembly->ReadMesh();
        assembly->ReadInstances();
        assembly->ReadSets(false);
    }
};

template<class T> yld_Sequence<T> seq(std::initializer_list<T> values)
{
    return yld_Sequence<T>(values.begin(), static_cast<int>(values.size()));
}
inline yld_Sequence<int> ints(std::initializer_list<int> values) { return seq<int>(values); }
inline yld_Sequence<yld_String> names(std::initializer_list<const char*> values)
{
    yld_Sequence<yld_String> all;
    for (const char* each : values) all.append(yld_String(each));
    return all;
}
template<class T> yld_Sequence<yld_Sequence<T>> rows(std::initializer_list<std::initializer_list<T>> values)
{
    yld_Sequence<yld_Sequence<T>> all;
    for (const auto& row : values) all.append(seq<T>(row));
    return all;
}
inline yld_Sequence<yld_Enum::yld_ElementFaceEnum> faces(std::initializer_list<yld_Enum::yld_ElementFaceEnum> values)
{
    return seq<yld_Enum::yld_ElementFaceEnum>(values);
}

inline std::vector<int> vec(const yld_Sequence<int>& sequence)
{
    return std::vector<int>(sequence.begin() == sequence.end() ? std::vector<int>() : [&] {
        std::vector<int> all;
        for (int value : sequence) all.push_back(value);
        return all;
    }());
}
inline std::vector<int> labelsOf(const yld_SequenceNode& nodes)
{
    std::vector<int> all;
    for (int i = 0; i < nodes.size(); ++i) all.push_back(nodes[static_cast<unsigned>(i)].label());
    return all;
}
inline std::vector<int> labelsOf(const yld_SequenceElement& elements)
{
    std::vector<int> all;
    for (int i = 0; i < elements.size(); ++i) all.push_back(elements[static_cast<unsigned>(i)].label());
    return all;
}
inline std::vector<int> vec(const yld_Sequence<yld_Enum::yld_ElementFaceEnum>& sequence)
{
    std::vector<int> all;
    for (int i = 0; i < sequence.size(); ++i) all.push_back(sequence[i]);
    return all;
}
inline std::vector<std::string> vec(const yld_Sequence<yld_String>& sequence)
{
    std::vector<std::string> all;
    for (int i = 0; i < sequence.size(); ++i) all.push_back(sequence[i].cStr());
    return all;
}

/// The text of the yld_Exception, number 6, that a call raises; other exceptions fail the test.
template<class Call> std::string raised(Call&& call)
{
    try {
        call();
    } catch (const yld_Exception& failure) {
        EXPECT_EQ(failure.errorNo(), yld_GENERAL);
        return failure.UserReport().cStr();
    }
    return "nothing was raised";
}
/// The same for an exception of the store, which is no yld_Exception.
template<class Call> std::string raisedText(Call&& call)
{
    try {
        call();
    } catch (const yld_Exception& failure) {
        ADD_FAILURE() << "yld_Exception: " << failure.what();
    } catch (const exc_TextException& failure) {
        return failure.UserReport().cStr();
    }
    return "nothing was raised";
}

/// Two hexahedra side by side along x with node labels 1 to 12 (four nodes at x = 0, four at 1, four at 2, in the
/// order (y,z) = (0,0) (1,0) (1,1) (0,1)) and element labels 1 and 2.
inline void addTwoHexes(yld_Part& part)
{
    yld_Sequence<int> labels;
    yld_Sequence<yld_Sequence<float>> points;
    const float yz[4][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    for (int i = 0; i < 12; ++i) {
        labels.append(i + 1);
        points.append(seq<float>({static_cast<float>(i / 4), yz[i % 4][0], yz[i % 4][1]}));
    }
    part.addNodes(labels, points);
    part.addElements(ints({1, 2}), rows<int>({{1, 2, 3, 4, 5, 6, 7, 8}, {5, 6, 7, 8, 9, 10, 11, 12}}), "HEX8");
}

#endif
