// The add-in's side of the library's start-up: the callback tables registered the way an add-in
// does, and the document that the document-side providers answer.
#pragma once

class NodeDocument;

namespace addin {

// Steps 2 to 7 of an add-in's start-up: resources, callbacks, language, environment, providers.
// The active-document slot answers the add-in's standing document (titled "orvhost document",
// millimetres, current storage version); new object ids come from one count for the process.
void StartLibrary();
// The add-in's unload step.
void StopLibrary();

// The document whose indexer helper the library numbers new nodes in; null for none. Only the
// indexer provider follows it: ids and the active document stay the add-in's own.
void OpenDocument(NodeDocument* document);

} // namespace addin
