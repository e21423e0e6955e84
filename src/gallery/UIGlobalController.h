#pragma once
// Operations shared by the windows that work on the collection.
// The gallery geometry (GetXCoord, GetYCoord), the directory scan of the
// collection editor and slide deletion join this class as the gallery lands.

namespace cb {

class UIGlobalController {};

}  // namespace cb
