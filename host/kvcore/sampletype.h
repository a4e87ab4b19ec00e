#pragma once

namespace coagulation::kv {

// What a sample number stands for (Sample::sampleTypeOf gives the rule).
enum SampleType : int {
    PatientSample = 0,
    EmergencySample = 1,
    QcSample = 2,
};

} // namespace coagulation::kv
