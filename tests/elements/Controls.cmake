# Widget tests of the setting controls.
tav_add_qtest(NAME TestNumericValidators SOURCES TestNumericValidators.cpp)
tav_add_qtest(NAME TestTextControls SOURCES TestTextControls.cpp)
tav_add_qtest(NAME TestAboutControl SOURCES TestAboutControl.cpp)
tav_add_qtest(NAME TestMnemonicRegistry SOURCES TestMnemonicRegistry.cpp)
tav_add_qtest(NAME TestSampleControls SOURCES TestSampleControls.cpp)
