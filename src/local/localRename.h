// Giving the selected local file a new name: a copy under the new name,
// then the old one deleted, so folders keep theirs.
#pragma once

// Which reader fills the list after a rename: the popup's copy or the
// pane's own, as the popup and the frame menu do.
enum class RenameRefresh { Popup, Pane };

void RenameLocalSelection(RenameRefresh refresh);
