#pragma once

#include <cstdint>
#include <string>

// The numbers of a download or an installation as the user sees them. Amounts are bytes,
// a speed is the bytes of one report, which stands for a second.

// 0 to 100; 0 while the total is unknown.
int percentOf(uint64_t done, uint64_t total);

std::wstring amountText(uint64_t done, uint64_t total); // "512KB/3MB"
std::wstring speedText(uint64_t speed);                 // "900KB/S"

// "01:02:05", or "--:--:--" while nothing arrives.
std::wstring timeLeftText(uint64_t done, uint64_t total, uint64_t speed);

// The install bar creeps one percent a tick and waits at 99 for the end.
int nextInstallPercent(int percent);

// Pixels, at the design width of the bar of 978, that push the icon along it.
int iconOffset(int percent);
