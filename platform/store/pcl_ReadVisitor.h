#ifndef PCL_READVISITOR_H
#define PCL_READVISITOR_H

#include <string>
#include <vector>

class lnk_AnyShortCut;
template<class T> class pcl_Array;

/// Gives the attributes of one stored object, by name. Each Read tells whether the file has the
/// attribute; where it is absent, the value stays as it was, which makes the member's initialiser the default.
class pcl_ReadVisitor
{
public:
    virtual ~pcl_ReadVisitor() = default;

    virtual bool Read(const char* attribute, int& value) = 0;
    virtual bool Read(const char* attribute, long long& value) = 0;
    virtual bool Read(const char* attribute, float& value) = 0;
    virtual bool Read(const char* attribute, double& value) = 0;
    virtual bool Read(const char* attribute, bool& value) = 0;
    virtual bool Read(const char* attribute, std::string& text) = 0;
    virtual bool Read(const char* attribute, std::vector<int>& list) = 0;
    virtual bool Read(const char* attribute, std::vector<double>& list) = 0;
    virtual bool Read(const char* attribute, std::vector<std::string>& list) = 0;
    virtual bool Read(const char* attribute, lnk_AnyShortCut& reference) = 0;
    virtual bool Read(const char* attribute, pcl_Array<int>& bulk) = 0;
    virtual bool Read(const char* attribute, pcl_Array<float>& bulk) = 0;
    virtual bool Read(const char* attribute, pcl_Array<double>& bulk) = 0;
};

#endif
