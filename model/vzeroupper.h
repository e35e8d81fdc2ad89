// The AVX instruction vzeroupper, which ends the transition penalty between AVX and SSE code.
#pragma once

namespace kurv {

// Executes vzeroupper, which marks the upper halves of the AVX registers as unused; does nothing on
// processors without AVX. Call it where heavy work begins.
//
// Code that is compiled for AVX has to execute vzeroupper at its end, and not all of it does: Qt's
// filling of pictures, for one. While the upper halves are in use, some processors give every SSE
// instruction, and so all arithmetic with Doubles, a false dependency on the previous contents of
// its destination register. Measured, that made evaluating expressions ten times and saving a graph
// twice as slow, until the next vzeroupper. The call costs a nanosecond.
void issue_vzeroupper();

}  // namespace kurv
