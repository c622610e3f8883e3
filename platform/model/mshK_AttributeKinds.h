#ifndef MSHK_ATTRIBUTEKINDS_H
#define MSHK_ATTRIBUTEKINDS_H

/// How an analysis was set up: one row for each kind of attribute, and nowhere else a list of them. A new kind has its
/// row here, the handle sto_<value> on the stored class, and what clients see: the classes yld_<value> and
/// yld_<repository>Repository, and an accessor of yld_Yld named after the member. The compiler asks for what is
/// missing.
///
/// X(stored class, value, repository, member, text): the model keeps the objects in m_<member>, under the text as the
/// name of the attribute in the file. The texts and their order stand in files: append only.
#define MSHK_ATTRIBUTE_KINDS(X)                                                                                        \
    X(bndC_BC, BC, BC, boundaryConditions, "boundary conditions")                                                      \
    X(intC_InteractionProperty, InteractionProperty, IP, interactionProperties, "interaction properties")              \
    X(intC_ContactControls, ContactControls, ContactControls, contactControls, "contact controls")                     \
    X(intC_Interaction, Interaction, Interaction, interactions, "interactions")                                        \
    X(ldcC_PredefinedField, PredefinedField, PredefinedField, predefinedFields, "predefined fields")                   \
    X(ldcC_Load, Load, Load, loads, "loads")                                                                           \
    X(cnsC_Constraint, Constraint, Constraint, constraints, "constraints")                                             \
    X(outC_FieldOutput, FieldOutputRequest, FieldOutputRequest, fieldOutputRequests, "field output requests")          \
    X(outC_HistoryOutput, HistoryOutputRequest, HistoryOutputRequest, historyOutputRequests, "history output requests")

#define MSHK_DECLARE_STORED(stored, value, repository, member, text) class stored;
MSHK_ATTRIBUTE_KINDS(MSHK_DECLARE_STORED)
#undef MSHK_DECLARE_STORED

#endif
