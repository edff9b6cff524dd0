#pragma once

// Hands the program to the crash reporter beside it. Without one the program runs just
// as well: every missing piece is logged and passed over.
void initCrashReport();
