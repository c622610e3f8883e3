// A program of somebody who has the installed library alone: writes a database, closes it, reads it again.
#include <yld.h>

#include <cstdio>
#include <exception>

int main(int argc, char** argv)
try {
    if (argc != 2) return 2;
    yld_initializeAPI();
    yld_Yld& db = Yld("job", "title", "description", argv[1]);
    yld_Part& part = db.Part("plate", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    yld_Sequence<int> nodes;
    yld_Sequence<yld_Sequence<float>> points;
    yld_Sequence<yld_Sequence<float>> rows;
    for (int i = 0; i < 8; ++i) {
        // Round the bottom, then round the top.
        const float point[] = {i % 4 == 1 || i % 4 == 2 ? 1.0f : 0.0f, i % 4 >= 2 ? 1.0f : 0.0f, i >= 4 ? 1.0f : 0.0f};
        const float row[] = {3.0f * static_cast<float>(i), 0.0f, 4.0f * static_cast<float>(i)};
        nodes.append(i + 1);
        points.append(yld_Sequence<float>(point, 3));
        rows.append(yld_Sequence<float>(row, 3));
    }
    part.addNodes(nodes, points, "all nodes");
    yld_SectionCategory& solid = db.SectionCategory("solid", "homogeneous solid");
    yld_Sequence<int> elements;
    elements.append(1);
    yld_Sequence<yld_Sequence<int>> connectivity;
    connectivity.append(nodes);
    part.addElements(elements, connectivity, "HEX8", "all elements", solid);
    yld_Instance& instance = db.rootAssembly().Instance("plate-1", part);
    yld_Step& step = db.Step("load", "ramp", yld_Enum::TIME, 1.0);
    yld_Frame frame = step.Frame(1, 0.1, "increment 1");
    yld_FieldOutput& u = frame.FieldOutput("U", "displacement", yld_Enum::VECTOR);
    u.addData(yld_Enum::NODAL, instance, nodes, rows);
    saveYld(db);
    db.close();

    yld_Yld& again = openYld(argv[1], true);
    const yld_FieldOutput& field = again.steps().get("load").frames(0).fieldOutputs().get("U");
    for (int i = 0; i < field.values().size(); ++i) {
        yld_FieldValue v = field.values(i);
        std::printf("%d %g %g\n", v.nodeLabel(), static_cast<double>(v.data().floatData()[2]),
                    static_cast<double>(v.magnitude()));
    }
    const yld_SequenceFieldBulkData& blocks = field.bulkDataBlocks();
    for (int i = 0; i < blocks.size(); ++i)
        std::printf("block of %d rows of %d\n", blocks.constGet(i).length(), blocks.constGet(i).width());
    again.close();

    try {
        openYld("/no/such/file.yld", true);
    } catch (const std::exception& error) {
        std::printf("caught: %d\n", error.what()[0] != '\0');
    }
    yld_finalizeAPI();
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "client: %s\n", error.what());
    return 1;
}
