#pragma once

namespace tavidoc {

class Arguments;

/// The verbs of the command line. Each returns the exit status and may throw what siteCommand() catches.
int buildVerb(const Arguments &arguments);
int singleVerb(const Arguments &arguments);
int checkVerb(const Arguments &arguments);
int watchVerb(const Arguments &arguments);
int compileVerb(const Arguments &arguments);
int linkVerb(const Arguments &arguments);
int renderVerb(const Arguments &arguments);
int dumpVerb(const Arguments &arguments);
int exportVerb(const Arguments &arguments);

} // namespace tavidoc
