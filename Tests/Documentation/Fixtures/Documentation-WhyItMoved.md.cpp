// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// @file 1 Tests/Tools/Inspect/StoryProgram.cpp
// @file 2 Tests/Tools/Inspect/StoryProgram.cpp
// @file 8 Tests/Tools/Inspect/StoryProgram.cpp
// @file 9 Tests/Tools/Inspect/StoryProgram.cpp
// @file 10 Tests/Tools/Inspect/StoryProgram.cpp
// @run 3 inspect.Stories.AreExplainedByThePageWithWhatTheToolSays
// @run 4 inspect.Stories.AreExplainedByThePageWithWhatTheToolSays
// @run 5 inspect.Stories.AreExplainedByThePageWithWhatTheToolSays
// @run 6 inspect.Stories.AreExplainedByThePageWithWhatTheToolSays
// @run 7 inspect.Stories.AreExplainedByThePageWithWhatTheToolSays
// @run 11 inspect.Stories.AreExplainedByThePageWithWhatTheToolSays
// @run 12 inspect.Stories.AreExplainedByThePageWithWhatTheToolSays
// @run 13 inspect.Stories.AreExplainedByThePageWithWhatTheToolSays
