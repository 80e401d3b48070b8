// Key names of the sample record's text form and of the import dialogs.

#include "kvdao/samplelist/sample_record.h"

namespace kvdao {

const std::string CSampleRecord::DataFileName = "Data File Name";
const std::string CSampleRecord::SampleDescription = "Sample Description";
const std::string CSampleRecord::MSFile = "MS File";
const std::string CSampleRecord::MSTuneFile = "MS Tune File";
const std::string CSampleRecord::InletFile = "Inlet File";
const std::string CSampleRecord::InletPreRun = "Inlet Prerun";
const std::string CSampleRecord::InletPostRun = "Inlet Postrun";
const std::string CSampleRecord::InletSwitch = "Inlet Switch";
const std::string CSampleRecord::ASFile = "AS File";
const std::string CSampleRecord::SampleLocation = "Sample Location";
const std::string CSampleRecord::AutoAddition = "Auto Addition";
const std::string CSampleRecord::CartridgeLocation1 = "Cartridge Location 1";
const std::string CSampleRecord::CartridgeLocation2 = "Cartridge Location 2";
const std::string CSampleRecord::SampleGroup = "Sample Group";
const std::string CSampleRecord::JobCode = "Job Code";
const std::string CSampleRecord::TaskCode = "Task Code";
const std::string CSampleRecord::UserName = "User Name";
const std::string CSampleRecord::SampleType = "Sample Type";
const std::string CSampleRecord::Control = "Control";
const std::string CSampleRecord::QualityReference = "Quality Reference";
const std::string CSampleRecord::SampleID = "Sample ID";
const std::string CSampleRecord::Conditions = "Conditions";
const std::string CSampleRecord::Submitter = "Submitter";
const std::string CSampleRecord::Process = "Process";
const std::string CSampleRecord::ProcessParameters = "Process Parameters";
const std::string CSampleRecord::ProcessOptions = "Process Options";
const std::string CSampleRecord::AcquProcess = "Acqu Process";
const std::string CSampleRecord::AcquProcessParameters = "Acqu Process Parameters";
const std::string CSampleRecord::AcquProcessOptions = "Acqu Process Options";
const std::string CSampleRecord::ProcessAction = "Action On Error";
const std::string CSampleRecord::Concentrations = "Concentrations";
const std::string CSampleRecord::Concentration = "Concentration";
const std::string CSampleRecord::Masses = "Masses";
const std::string CSampleRecord::Mass = "Mass";
const std::string CSampleRecord::PlateDescription = "Plate Description";
const std::string CSampleRecord::FractionFile = "FractionFile";
const std::string CSampleRecord::FractionStart = "FractionStart";
const std::string CSampleRecord::FractionTriggers = "FractionTriggers";
const std::string CSampleRecord::FractionTrigger = "Fraction";
const std::string CSampleRecord::UserFactor1 = "UserFactor1";
const std::string CSampleRecord::UserFactor2 = "UserFactor2";
const std::string CSampleRecord::UserFactor3 = "UserFactor3";
const std::string CSampleRecord::UserDivisor1 = "UserDivisor1";
const std::string CSampleRecord::Wavelengths = "Wavelengths";
const std::string CSampleRecord::Wavelength = "Wavelength";
const std::string CSampleRecord::Spares = "Spares";
const std::string CSampleRecord::Spare = "Spare";
const std::string CSampleRecord::HPLCFile = "HPLC File";
const std::string CSampleRecord::QuanRef = "Quan Reference";
const std::string CSampleRecord::MethDB = "Quan Method File";
const std::string CSampleRecord::CurveDB = "Quan Curve Database";
const std::string CSampleRecord::DumpFile = "Quan LIMS File";
const std::string CSampleRecord::SamplePosition = "Sample Position";
const std::string CSampleRecord::Molfile = "Molfile";
const std::string CSampleRecord::SubjectText = "Subject Text";
const std::string CSampleRecord::SubjectTime = "Subject Time";
const std::string CSampleRecord::SubjectSex = "Subject Sex";
const std::string CSampleRecord::SubjectSpecies = "Subject Species";
const std::string CSampleRecord::Compounds = "Compounds";
const std::string CSampleRecord::Compound = "Compound";
const std::string CSampleRecord::FormatFile = "Format File";
const std::string CSampleRecord::RetentionTimeOffset = "Retention Time Offset";
const std::string CSampleRecord::Reinjections = "Reinjections";
const std::string CSampleRecord::PrepInjectionVolume = "Prep Injection Volume";
const std::string CSampleRecord::MITFile = "MITFile";

}  // namespace kvdao
