// The tables of the back end's database. A new table is one more step at the end of
// the list; steps that stand there are never changed, because files that have taken
// them exist.
#pragma once

#include <vector>

// SQL statements, to be taken in this order, each once in a file's life.
const std::vector<const char *> &schemaSteps();
