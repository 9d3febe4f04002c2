#pragma once

#include <QString>
#include <span>

#include "core/Numbers.h"

// A ready shape: what it is called, and its formula, with "." and "," as the marks.
struct FormulaShape {
    const char* name;
    const char* formula;
};

std::span<const FormulaShape> FormulaShapes();

// The formula as this user writes it: where decimals have a comma, with ";" between arguments.
QString FormulaOf(const FormulaShape& shape, const UserNumbers& numbers);
