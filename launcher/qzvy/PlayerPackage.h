#pragma once

#include <string>

// Which player package is current: the description document of the object store, or what
// stands in the program when that gives nothing.

struct PlayerPackage {
    std::wstring address;
    std::wstring version; // a word; becomes part of a file name

    static PlayerPackage builtIn();
};

// The built-in package with what the document replaces. A version word that is not plain
// is refused with a log line, so that no document chooses a folder or a device.
PlayerPackage parsePlayerPackage(const std::string& text);

// "vynen_9.1.0.7z"
std::wstring playerPackageName(const std::wstring& version);

// "vyn_app_sea_5210.apk"
std::wstring gamePackageName(int version);

// What the game client is started with to install a game package. The path stands
// unquoted, also with blanks: the client takes all that follows the last equals sign.
std::wstring installCommand(const std::wstring& packagePath);
