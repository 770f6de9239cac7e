
#include "moc_FoldingIcon_p.cpp"
