# Rules between settings evaluated at run time.
tav_add_qtest(NAME TestConstraintEvaluator SOURCES TestConstraintEvaluator.cpp ReceiverProbe.h)
