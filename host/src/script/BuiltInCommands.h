// The macro player's built-in commands, added through MacroFileRunner::addCommand as $!UI and
// $!SNAPSHOT are (docs/vexplot.md has the language):
//
//   $!EXPORTSETUP <Attribute> = <value>   an export setup attribute (core/ExportSetupAttribute.h),
//                                          validated as VexUtilExportSetup validates it
//   $!SET <path word> ... = <value>        a style value, read by the path's type
//   $!VIEW <x> <y> <z> <psi> <theta> <alpha> <width>
//   $!SOLUTIONTIME <t>   $!PLOTTYPE <n>   $!NEWFRAME <plot type>   $!DELETEFRAMES
//   $!ZONE <solution time> <strand id>    $!REDRAW
//
// The player records each of them when it succeeds. $!SET, $!VIEW and $!SOLUTIONTIME tell the
// state change listeners, as the add-on's own calls would. A failing command throws MacroError
// naming what was wrong.
#ifndef VEXHOST_SCRIPT_BUILTINCOMMANDS_H
#define VEXHOST_SCRIPT_BUILTINCOMMANDS_H

namespace vexhost {

class DataSet;
class Drawing;
class Exporter;
class FrameStack;
class MacroFileRunner;
class StateNotifier;
class StyleStore;

class BuiltInCommands {
public:
    // Adds the commands to the runner; the host parts must outlive it.
    static void install(MacroFileRunner& runner, Exporter& exporter, StyleStore& style,
                        FrameStack& frames, DataSet& dataSet, Drawing& drawing,
                        StateNotifier& stateChanges);
};

}  // namespace vexhost

#endif
