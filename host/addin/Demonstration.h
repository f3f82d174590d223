// The reference add-in's demonstration document.
#pragma once

class NodeDocument;

// Fills `doc` with a small feature tree: two folders under the document, features in them, a
// feature that uses another, one recycled into a bin, a flagged one, a locked and a suppressed one.
// The features that stand also go into the document's folder list, grouped in nested folders.
// Every node gets its audit stamps.
void BuildDemonstration(NodeDocument& doc);
