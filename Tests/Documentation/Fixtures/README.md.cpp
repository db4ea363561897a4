// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @run 1 build.Readme.ShowsTheFirstExample
// @run 2 build.Readme.ShowsTheFirstExample
// @shell 3 ./check is how this is run; the session and the windows that ./demo shows have tests
// @file 4 Examples/Thermostat/Session/FirstRun.txt
// @run 5 inspect.Readme.ShowsWhatWhyAnswers
// @shell 6 installs other libraries, and measures for an hour
// @run 7 package
// @shell 8 makes and installs packages; Tests/Package/CheckDebianPackages.sh does that on a system of its own
// @shell 9 needs the packages to be installed; Tests/Package/CheckDebianPackages.sh does that
