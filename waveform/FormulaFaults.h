#pragma once

#include <muParser.h>

#include "waveform/FormulaNotation.h"

// The faults that the parser finds, in our words, with their place in what was typed. `plain` is what it was given.

FormulaFault FaultOf(const mu::ParserError& error, const mu::Parser& parser, const QString& typed,
                     const std::string& plain);

// The formula is a list of several results, at its first separator outside of ( ).
FormulaFault SeveralResults(const QString& typed, const std::string& plain);
