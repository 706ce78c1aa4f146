#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/FViewProfSurf.h"
#include "model/PiCollections.h"
#include "model/UnsetDouble.h"

#include <string>

namespace jlandxml
{

/// `PVI`: a point of a vertical alignment (縦断変化点), its text station and elevation in metres.
class FViewPVI final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"PVI"; }
    /// A text that isn't two numbers leaves both unset. Always true.
    bool ReadElement(const WcXmNode& node) override;
    /// Points stay as the host wrote them. Always true.
    bool WriteElement(const WcXmNode& /*node*/) override { return true; }

    double station = UNSET_DOUBLE;
    double elevation = UNSET_DOUBLE;
};

/// `ParaCurve`: a vertical curve (縦断曲線), its text station and elevation of the intersection point in metres. Only
/// the station counts here.
class FViewParaCurve final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"ParaCurve"; }
    /// A text that isn't two numbers leaves the station unset. Always true.
    bool ReadElement(const WcXmNode& node) override;
    /// Curves stay as the host wrote them. Always true.
    bool WriteElement(const WcXmNode& /*node*/) override { return true; }

    double station = UNSET_DOUBLE;
};

/// `ProfAlign`: a vertical design alignment (縦断線形), a chain of points and vertical curves.
class FViewProfAlign final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"ProfAlign"; }
    /// Takes the name, and the start from the first `PVI` and the first `ParaCurve`. Always true.
    bool ReadElement(const WcXmNode& node) override;
    /// The design stays as the host wrote it. Always true.
    bool WriteElement(const WcXmNode& /*node*/) override { return true; }

    std::wstring name;
    double startStation = UNSET_DOUBLE; ///< metres: the smaller of its first point and its first vertical curve
};

/// `Profile`: the vertical design of an alignment and the ground lines along it. Of several designs the one that starts
/// first is the design profile. The attribute `staStart`, where it is there, bars every design that doesn't start
/// before it; then no design profile is chosen, and cross sections refer to none.
class FViewProfile final : public FViewLandXMLBase
{
  public:
    static constexpr const wchar_t* NO_PROFILE = L"縦断（Profile）がありません";

    void Clear() override;
    const wchar_t* GetElementName() const override { return L"Profile"; }

    /// Chooses the design profile and takes the ground lines out of the tree: `ProfAlign` elements whose names the host
    /// has marked, and real `ProfSurf` elements. So a tree that was read once holds no ground lines until they are
    /// written. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Sets `staStart` and puts the ground lines back as `ProfSurf`, behind the other children; a second writing puts
    /// them there once more. Always true.
    bool WriteElement(const WcXmNode& node) override;

    /// Metres: start of the design profile, or the attribute as it was read if no design starts before it.
    double staStart = UNSET_DOUBLE;
    std::wstring profAlignName; ///< name of the design profile, to which cross sections refer; may be empty
    /// Why profAlignName is empty, for who tells of it.
    const wchar_t* whyNameless = NO_PROFILE;
    PiCmCopyList<FViewProfSurf> profSurfs; ///< first those that were marked, then the real ones

  private:
    void ChooseDesignProfile(const PiCmCopyList<FViewProfAlign>& profAligns);
};

/// Appends the points of a marked `ProfAlign` to a ground line. A `PVI` that isn't two numbers gives an unset point;
/// vertical curves mean nothing on ground.
void ConvertToProfSurf(const WcXmNode& node, FViewProfSurf& surface);

} // namespace jlandxml
