#include "addin/Demonstration.h"

#include "addin/DemoFolders.h"
#include "addin/NodeDocument.h"

void BuildDemonstration(NodeDocument& doc) {
    doc.ChangeName(L"Demonstration");
    auto* bin = doc.Add<DocFolder>(L"Recycle bin", &doc);
    auto* features = doc.Add<DocFolder>(L"Features", &doc);
    auto* operations = doc.Add<DocFolder>(L"Operations", &doc);
    auto* pocket = doc.Add<DocNode>(L"Pocket", features);
    auto* hole = doc.Add<DocNode>(L"Hole", features);
    auto* slot = doc.Add<DocNode>(L"Slot", features);
    auto* boss = doc.Add<DocNode>(L"Boss", features);
    auto* groove = doc.Add<DocNode>(L"Groove", features);
    auto* chamfer = doc.Add<DocNode>(L"Chamfer", features);
    auto* face = doc.Add<DocNode>(L"Face", features);
    auto* roughing = doc.Add<DocNode>(L"Roughing", operations);
    auto* drilling = doc.Add<DocNode>(L"Drilling", operations);
    pocket->AddToUserObjectsList(roughing, 0); // the roughing works on the pocket
    hole->AddToUserObjectsList(drilling, 0);
    roughing->AddToUserObjectsList(pocket, 1); // a transient link: not stored
    slot->Recycle();
    slot->SetOwner(bin);
    hole->m_Flag.SetFlag();
    hole->m_Flag.SetFlagErrorType(SEGMENT);
    drilling->LockThis();
    roughing->SetState(OrvObject::SUPPRESSED);
    pocket->SetDisplayColor(0x000080FF);
    pocket->SetNodeStatus(ORV_NODE_STATUS_DISPLAY, 1);
    CObList featureList;
    for (OrvObject* feature : {static_cast<OrvObject*>(pocket), static_cast<OrvObject*>(hole),
                               static_cast<OrvObject*>(boss), static_cast<OrvObject*>(groove),
                               static_cast<OrvObject*>(chamfer), static_cast<OrvObject*>(face)})
        featureList.AddTail(feature);
    BuildDemoFolders(doc.m_FolderList, featureList, &doc);
    for (POSITION pos = doc.m_Nodes.GetHeadPosition(); pos;)
        static_cast<OrvObject*>(doc.m_Nodes.GetNext(pos))->GetUiObject(); // audit stamps
}
