// Finds where a text may be cut so that what is one character to its reader stays whole.
#pragma once

namespace clusters {

// Returns the last such place behind the begin that is not behind the limit. Where the first character
// reaches beyond the limit it is the place behind that one; a character that is absurdly long is cut.
const unsigned char* lastBoundary(const unsigned char* begin, const unsigned char* limit,
                                  const unsigned char* end);

} // namespace clusters
