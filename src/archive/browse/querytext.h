// Makes the statement that a search sends to the archive.
#pragma once

#include "archive/browse/searchcriteria.h"

namespace querytext {

// Stands in the box of an empty criterion while an OR is built.
inline const QString kNoMatch = QStringLiteral("¤");

// Kept: what was typed goes between the apostrophes as it stands, so an apostrophe in it makes the statement
// invalid, and "%" and "_" are wildcards.
QString allOf(const Criteria& criteria);
QString anyOf(const Criteria& criteria);

bool holdsApostrophe(const Criteria& criteria);

} // namespace querytext
