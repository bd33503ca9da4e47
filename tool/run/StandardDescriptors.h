// tool/run/StandardDescriptors.h - standard input, output and error that nobody gave us.
#ifndef VEXPA_TOOL_RUN_STANDARDDESCRIPTORS_H_
#define VEXPA_TOOL_RUN_STANDARDDESCRIPTORS_H_

namespace vexpa_tool {

// Whoever starts the tool may have closed some of the three. The next file that is opened would
// take the free number, and get the results written into it or be read as standard input. So the
// numbers are taken first, by what can neither be read nor written.
void OccupyClosedDescriptors();

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_RUN_STANDARDDESCRIPTORS_H_
