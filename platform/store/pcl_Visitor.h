#ifndef PCL_VISITOR_H
#define PCL_VISITOR_H

#include <string>
#include <vector>

class msg_StringBase;
class lnk_AnyShortCut;
template<class T> class pcl_Array;

/// Receives the attributes of one persistent object, by name, when the object is written.
/// Values are taken over during the call; nothing is borrowed beyond it.
class pcl_WriteVisitor
{
public:
    virtual ~pcl_WriteVisitor() = default;

    /// Opens the part of the object that the class with this type id declares.
    /// False means that the visitor does not want this class: the caller writes nothing of it.
    virtual bool StartWrite(unsigned typeId) = 0;

    virtual void Write(const char* attribute, int value) = 0;
    virtual void Write(const char* attribute, long long value) = 0;
    virtual void Write(const char* attribute, float value) = 0;
    virtual void Write(const char* attribute, double value) = 0;
    virtual void Write(const char* attribute, bool value) = 0;
    virtual void Write(const char* attribute, const char* text) = 0;
    virtual void Write(const char* attribute, const std::string& text) = 0;
    virtual void Write(const char* attribute, const std::vector<int>& list) = 0;
    virtual void Write(const char* attribute, const std::vector<double>& list) = 0;
    virtual void Write(const char* attribute, const std::vector<std::string>& list) = 0;
    virtual void Write(const char* attribute, const lnk_AnyShortCut& reference) = 0;
    virtual void Write(const char* attribute, const pcl_Array<int>& bulk) = 0;
    virtual void Write(const char* attribute, const pcl_Array<float>& bulk) = 0;
    virtual void Write(const char* attribute, const pcl_Array<double>& bulk) = 0;
};

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
