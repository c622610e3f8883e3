#include "schema/clvS_Families.h"

#include "platform/store/pcl_MetadataRegistrar.h"

void hvyC_formalize() { pcl_MetadataRegistrar::formalize("hvyC"); }
void flwC_formalize() { pcl_MetadataRegistrar::formalize("flwC"); }
void outC_formalize() { pcl_MetadataRegistrar::formalize("outC"); }
void prfC_formalize() { pcl_MetadataRegistrar::formalize("prfC"); }
void secC_formalize() { pcl_MetadataRegistrar::formalize("secC"); }
void adpC_formalize() { pcl_MetadataRegistrar::formalize("adpC"); }
void lcsC_formalize() { pcl_MetadataRegistrar::formalize("lcsC"); }
void kcnC_formalize() {}
