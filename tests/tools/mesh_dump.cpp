// Prints nodes, elements and set members of every part instance as JSON: what `yld` leaves out, read by an
// ordinary client.

#include <yld.h>

#include <cstdio>
#include <exception>

namespace {

const char* comma(int i) { return i == 0 ? "" : ","; }

void printSets(const char* key, const yld_SetRepository& sets)
{
    std::printf(",\"%s\":{", key);
    const yld_Sequence<yld_String> names = sets.keys();
    for (int s = 0; s < names.size(); ++s) {
        const yld_Set& set = sets.constGet(names[s]);
        std::printf("%s\"%s\":[", comma(s), names[s].cStr());
        if (set.size() == 0) {
            std::printf("]");
            continue;
        }
        switch (set.type()) {
        case yld_Enum::NODE_SET:
            for (int i = 0; i < set.nodes().size(); ++i)
                std::printf("%s%d", comma(i), set.nodes()[static_cast<unsigned>(i)].label());
            break;
        case yld_Enum::ELEMENT_SET:
            for (int i = 0; i < set.elements().size(); ++i)
                std::printf("%s%d", comma(i), set.elements()[static_cast<unsigned>(i)].label());
            break;
        default:
            for (int i = 0; i < set.elements().size(); ++i)
                std::printf("%s[%d,%d]", comma(i), set.elements()[static_cast<unsigned>(i)].label(),
                            static_cast<int>(set.faces()[i]));
            break;
        }
        std::printf("]");
    }
    std::printf("}");
}

void printInstance(const yld_Instance& instance)
{
    std::printf("{\"name\":\"%s\",\"space\":%d,\"nodes\":[", instance.name().cStr(),
                static_cast<int>(instance.embeddedSpace()));
    for (int i = 0; i < instance.nodes().size(); ++i) {
        const yld_Node node = instance.nodes(i);
        std::printf("%s[%d,%.9g,%.9g,%.9g]", comma(i), node.label(), static_cast<double>(node.coordinate(0)),
                    static_cast<double>(node.coordinate(1)), static_cast<double>(node.coordinate(2)));
    }
    std::printf("],\"elements\":[");
    for (int i = 0; i < instance.elements().size(); ++i) {
        const yld_Element element = instance.elements(i);
        std::printf("%s[%d,\"%s\",[", comma(i), element.label(), element.type().cStr());
        const yld_Sequence<int> nodes = element.connectivity();
        for (int n = 0; n < nodes.size(); ++n) std::printf("%s%d", comma(n), nodes[n]);
        std::printf("]]");
    }
    std::printf("]");
    printSets("nodeSets", instance.nodeSets(false, true));
    printSets("elementSets", instance.elementSets(false, true));
    printSets("surfaces", instance.surfaces(false));
    std::printf("}");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) return 2;
    try {
        yld_initializeAPI();
        yld_Yld& db = openYld(argv[1], true);
        const yld_InstanceRepository& instances = db.rootAssembly().instances();
        const yld_Sequence<yld_String> names = instances.keys();
        std::printf("[");
        for (int i = 0; i < names.size(); ++i) {
            std::printf("%s", comma(i));
            printInstance(instances.constGet(names[i]));
        }
        std::printf("]\n");
        db.close();
        yld_finalizeAPI();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mesh_dump: %s\n", error.what());
        return 1;
    }
}
