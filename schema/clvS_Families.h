#ifndef CLVS_FAMILIES_H
#define CLVS_FAMILIES_H

/// The families of persistent classes that declare themselves when class evolution starts. Each of these enters its
/// family in the table of persistent classes, once however often it is called.
void hvyC_formalize();
void flwC_formalize();
void outC_formalize();
void prfC_formalize();
void secC_formalize();
void adpC_formalize();
void lcsC_formalize();
/// Does nothing: the connector classes are declared when their library starts.
void kcnC_formalize();

#endif
