// The upper halves of the processor's vector registers.
#pragma once

namespace kurv {

// Marks the upper halves of the vector registers as unused; nothing on processors without any. Call
// it where heavy work begins. Code that is compiled for wide registers promises to do this at its
// end, and not all of it does: Qt's filling of pictures, for one. From then on some processors take
// every older vector instruction, and all arithmetic with Doubles is made of those, to depend on
// what its target register held before. That was measured to make evaluating expressions ten
// times and saving a graph twice as slow, until somebody clears them. The call costs a nanosecond.
void clear_upper_registers();

}  // namespace kurv
