#include "archive/target_folder.h"

#include <algorithm>

namespace archive {

std::wstring_view parentOf(std::wstring_view relative) {
    const size_t cut = relative.rfind(L'/');
    return relative.substr(0, cut == std::wstring_view::npos ? 0 : cut);
}

std::wstring TargetFolder::pathOf(std::wstring_view relative) const {
    std::wstring path = root + pathSeparator;
    const size_t start = path.size();
    path += relative;
    std::replace(path.begin() + static_cast<ptrdiff_t>(start), path.end(), L'/', pathSeparator);
    return path;
}

FolderState TargetFolder::makeRoot() {
    rootReady = rootReady || makeFolderWithParents(root);
    return rootReady ? FolderState::Ready : FolderState::Failed;
}

FolderState TargetFolder::makeFolders(std::wstring_view relative) {
    FolderState state = makeRoot();
    if (state != FolderState::Ready || relative == lastReady)
        return state;
    for (size_t cut = 0; cut != std::wstring_view::npos && state == FolderState::Ready;) {
        cut = relative.find(L'/', cut + 1);
        if (!relative.empty())
            state = makeFolder(pathOf(relative.substr(0, cut)));
    }
    if (state == FolderState::Ready)
        lastReady = relative;
    return state;
}

} // namespace archive
