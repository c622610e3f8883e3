#ifndef EXODUS_ORDER_H
#define EXODUS_ORDER_H

// Node order of Exodus II blocks against the library's, which is VTK's for the same cell.
//
// Each array says for every node of ours where it stands in an Exodus connectivity row, counted from 0:
//
//     ours[i] = exodus[order[i]]
//
// Types not listed have the same order in both: lines, triangles, quadrilaterals (4, 8, 9 nodes), HEX8,
// WEDGE6, TET4, TET10, PYRAMID5. Side numbers need no table: face f (from 0) of a solid is Exodus side f + 1,
// edge e of a plane triangle or quadrilateral is Exodus side e + 1. Of an Exodus shell, side 1 is the upper
// side (SIDE1), side 2 the lower (SIDE2), and sides 3 and up are edges 0 and up.

// HEX20. Exodus: corners, the four edges of the bottom (8 to 11), the four upright edges (12 to 15), the four
// edges of the top (16 to 19). Ours: bottom edges, top edges, upright edges.
inline constexpr int exodus_hex20Order[20] = {0,  1,  2,  3,  4, 5, 6, 7, // corners
                                              8,  9,  10, 11,             // 0-1 1-2 2-3 3-0, bottom
                                              16, 17, 18, 19,             // 4-5 5-6 6-7 7-4, top
                                              12, 13, 14, 15};            // 0-4 1-5 2-6 3-7, upright

// HEX27. The first twenty as above. Exodus goes on with the centre of the cell (20), bottom (21), top (22),
// left (23, corners 0 3 7 4), right (24, corners 1 2 6 5), front (25, corners 0 1 5 4) and back (26, corners
// 2 3 7 6); ours with left, right, front, back, bottom, top, centre of the cell.
inline constexpr int exodus_hex27Order[27] = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 16, 17,
                                              18, 19, 12, 13, 14, 15, 23, 24, 25, 26, 21, 22, 20};

// WEDGE15. Exodus: corners, the edges of the bottom triangle (6 to 8), the upright edges (9 to 11), the edges
// of the top triangle (12 to 14). Ours: bottom, top, upright.
inline constexpr int exodus_wedge15Order[15] = {0,  1,  2,  3, 4, 5, // corners
                                                6,  7,  8,           // 0-1 1-2 2-0, bottom
                                                12, 13, 14,          // 3-4 4-5 5-3, top
                                                9,  10, 11};         // 0-3 1-4 2-5, upright

// WEDGE18. As WEDGE15, then in both the centres of the quadrilaterals 0 1 4 3, 1 2 5 4 and 2 0 3 5.
inline constexpr int exodus_wedge18Order[18] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 12, 13, 14, 9, 10, 11, 15, 16, 17};

#endif
