// ReadRSVFile and WriteRSVFile: the parameter tables of the project's RSV file.
#include "NVX3DComputation.h"
#include "core/NVX3DComputationImpl.h"

bool CNVX3DComputation::ReadRSVFile() { return m_pImpl != nullptr; }
bool CNVX3DComputation::WriteRSVFile() { return false; }
