// The whole public interface: read, check, edit and write AMESP input files.
#pragma once

#include <velk/input/amesp/codes.hpp>
#include <velk/input/amesp/diagnostics.hpp>
#include <velk/input/amesp/document.hpp>
#include <velk/input/amesp/editor.hpp>
#include <velk/input/amesp/formatting.hpp>
#include <velk/input/amesp/parser.hpp>
#include <velk/input/amesp/positions.hpp>
#include <velk/input/amesp/report.hpp>
#include <velk/input/amesp/schema.hpp>
#include <velk/input/amesp/schema_source.hpp>
#include <velk/input/amesp/schema_tables.hpp>
#include <velk/input/amesp/text_edit.hpp>
#include <velk/input/amesp/validation.hpp>
#include <velk/input/amesp/version.hpp>
#include <velk/input/amesp/xyz.hpp>
