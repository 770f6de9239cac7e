
#include "moc_RequestTracer_p.cpp"
