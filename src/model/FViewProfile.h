#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/FViewProfSurf.h"
#include "model/PiCollections.h"
#include "model/UnsetDouble.h"

#include <string>

namespace jlandxml
{

/// `PVI`: a point of a vertical alignment, station and elevation in metres.
class FViewPVI final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"PVI"; }
    bool ReadElement(const WcXmNode& node) override;
    /// Points stay as the host wrote them. Always true.
    bool WriteElement(const WcXmNode& /*node*/) override { return true; }

    double station = UNSET_DOUBLE;
    double elevation = UNSET_DOUBLE;
};

/// `ParaCurve`: a vertical curve, of which the station of its intersection point (metres) counts here.
class FViewParaCurve final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"ParaCurve"; }
    bool ReadElement(const WcXmNode& node) override;
    /// Curves stay as the host wrote them. Always true.
    bool WriteElement(const WcXmNode& /*node*/) override { return true; }

    double station = UNSET_DOUBLE;
};

/// `ProfAlign`: a vertical design alignment.
class FViewProfAlign final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"ProfAlign"; }
    bool ReadElement(const WcXmNode& node) override;
    /// The design stays as the host wrote it. Always true.
    bool WriteElement(const WcXmNode& /*node*/) override { return true; }

    std::wstring name;
    double startStation = UNSET_DOUBLE; ///< the smaller station of its first point and its first vertical curve
};

/// `Profile`: the vertical design of an alignment and the ground lines along it.
class FViewProfile final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"Profile"; }

    /// Chooses the design profile and takes the ground lines out of the tree: real `ProfSurf` elements, and the
    /// `ProfAlign` elements that the host has marked as such. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Puts the ground lines back as `ProfSurf`, behind the other children. False if an element can't be added.
    bool WriteElement(const WcXmNode& node) override;

    double staStart = UNSET_DOUBLE;        ///< start of the design profile, metres
    std::wstring profAlignName;            ///< name of the design profile, to which cross sections refer
    PiCmCopyList<FViewProfSurf> profSurfs; ///< first those that were marked, then the real ones

  private:
    void ChooseDesignProfile(const PiCmCopyList<FViewProfAlign>& profAligns);
};

/// Makes a ground line of the points of a marked `ProfAlign`.
void ConvertToProfSurf(const WcXmNode& node, FViewProfSurf& surface);

} // namespace jlandxml
