// tool/run/Interrupt.h - Ctrl-C: what is finished gets printed, then the tool ends.
#ifndef VEXPA_TOOL_RUN_INTERRUPT_H_
#define VEXPA_TOOL_RUN_INTERRUPT_H_

namespace vexpa_tool {

// From now on an interrupt is only noted. Long work asks for it where its results are not half
// printed; work that does not ask is cut off a second later.
void NoteInterrupts();

// Throws a FatalError with the status for it once there was one.
void StopIfInterrupted();

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_RUN_INTERRUPT_H_
