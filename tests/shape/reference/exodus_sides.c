/* Prints, for every side of every element type, the nodes that the Exodus II library names, in its own node
   numbers (from 1). Release 6.02 does not know WEDGE18. Run by hand when a type is added:

       cc exodus_sides.c -lexoIIv2c -o exodus_sides && ./exodus_sides > exodus_sides.txt
*/
#include <exodusII.h>
#include <stdio.h>
#include <string.h>

static void sides(const char* label, const char* type, int dimension, int nodes, int numSides)
{
    char path[] = "exodus_sides.tmp.e";
    int word = 8, store = 8;
    int file = ex_create(path, EX_CLOBBER, &word, &store);
    ex_put_init(file, "sides", dimension, nodes, 1, 1, 0, 1);
    double x[27], y[27], z[27];
    int connectivity[27];
    for (int i = 0; i < nodes; ++i) {
        x[i] = y[i] = z[i] = i;
        connectivity[i] = i + 1;
    }
    ex_put_coord(file, x, y, z);
    ex_put_block(file, EX_ELEM_BLOCK, 1, type, 1, nodes, 0, 0, 0);
    ex_put_conn(file, EX_ELEM_BLOCK, 1, connectivity, NULL, NULL);
    int element[6], side[6];
    for (int i = 0; i < numSides; ++i) {
        element[i] = 1;
        side[i] = i + 1;
    }
    ex_put_set_param(file, EX_SIDE_SET, 1, numSides, 0);
    ex_put_set(file, EX_SIDE_SET, 1, element, side);
    ex_close(file);

    float version;
    file = ex_open(path, EX_READ, &word, &store, &version);
    int counts[6], list[6 * 9];
    memset(list, 0, sizeof list);
    ex_get_side_set_node_list(file, 1, counts, list);
    ex_close(file);
    remove(path);
    const int* next = list;
    for (int i = 0; i < numSides; ++i) {
        /* Release 6.02 counts seven nodes on the triangles of WEDGE15, one more than it lists. */
        if (counts[i] == 7) counts[i] = 6;
        printf("%s %d %d", label, i + 1, counts[i]);
        for (int k = 0; k < counts[i]; ++k)
            printf(" %d", *next++);
        printf("\n");
    }
}

int main(void)
{
    sides("TRI3", "TRI3", 2, 3, 3);
    sides("TRI6", "TRI6", 2, 6, 3);
    sides("QUAD4", "QUAD4", 2, 4, 4);
    sides("QUAD8", "QUAD8", 2, 8, 4);
    sides("QUAD9", "QUAD9", 2, 9, 4);
    sides("HEX8", "HEX8", 3, 8, 6);
    sides("HEX20", "HEX20", 3, 20, 6);
    sides("HEX27", "HEX27", 3, 27, 6);
    sides("WEDGE6", "WEDGE6", 3, 6, 5);
    sides("WEDGE15", "WEDGE15", 3, 15, 5);
    sides("TET4", "TETRA4", 3, 4, 4);
    sides("TET10", "TETRA10", 3, 10, 4);
    sides("PYRAMID5", "PYRAMID5", 3, 5, 5);
    sides("SHELL3", "TRI3", 3, 3, 5);
    sides("SHELL4", "SHELL4", 3, 4, 6);
    sides("SHELL8", "SHELL8", 3, 8, 6);
    return 0;
}
