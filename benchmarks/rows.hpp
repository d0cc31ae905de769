// The groups of rows. Each file of rows names its own, so that what this machine lacks can be left out of the build.
#pragma once

namespace velk::bench {

// Where a group stands in the table.
enum class Place { parse, render, document, coordinates, pairs, writing, files, program };

// Made at namespace scope: has `add` called when the table is set up.
class RowGroup {
public:
    RowGroup(Place place, void (*add)());
};

void add_all_rows();

}  // namespace velk::bench
