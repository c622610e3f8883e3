#ifndef PCL_WRITEVISITOR_H
#define PCL_WRITEVISITOR_H

#include <string>
#include <vector>

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

#endif
