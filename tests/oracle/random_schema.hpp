// Random schemas, filled by hand: what a loader makes and what only a caller can.
#pragma once

#include <memory>
#include <velk/input/amesp/schema_tables.hpp>

#include "oracle/chance.hpp"

namespace velk::oracle {

std::shared_ptr<const input::amesp::InputSchema::Impl> random_schema(Chance& chance);

}  // namespace velk::oracle
