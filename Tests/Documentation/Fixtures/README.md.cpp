// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @run 1 build.Readme.ShowsTheFirstExample
// @run 2 build.Readme.ShowsTheFirstExample
// @shell 3 ./check is how this is run; the session and the windows that ./demo shows have tests
// @file 4 Examples/Thermostat/Session/FirstRun.txt
// @shell 5 installs other libraries, and measures for an hour
// @run 6 package
// @shell 7 makes and installs packages; Tests/Package/CheckDebianPackages.sh does that on a system of its own
// @shell 8 needs the packages to be installed; Tests/Package/CheckDebianPackages.sh does that
