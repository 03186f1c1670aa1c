#pragma once

#include "Check.h"

namespace brackwater::inspect {

/// Adds a warning for each rule that all files saved by Microsoft Project 2007 keep and this one breaks: the numbers
/// that a file holds about itself agree with its rows, elements, collections and exceptions, and no property or storage
/// is missing that all of them have. Readers put up with it; a strict one may refuse or repair such a file.
void checkConsistency(const CompoundFile& file, const ProjectFile& project, Findings& findings);

} // namespace brackwater::inspect
