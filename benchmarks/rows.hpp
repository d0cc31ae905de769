// The groups of rows, in the order of the table.
#pragma once

namespace velk::bench {

void add_parse_rows();
void add_render_rows();
void add_document_rows();

}  // namespace velk::bench
