#include "core/SystemPrefsStore.h"

#include "core/PrefsJson.h"

#import <Foundation/Foundation.h>

namespace zolva {

namespace {

// The defaults keep text, and a path need not be text: what is not UTF-8 has a form of its own, the
// same as in the file of other systems.

NSString* textOf(const std::string& bytes)
{
    const std::string stored = storedText(bytes);
    NSString* text = [[NSString alloc] initWithBytes:stored.data()
                                              length:stored.size()
                                            encoding:NSUTF8StringEncoding];
    return text ? text : @"";
}

std::string bytesOf(NSString* text)
{
    // By its length: that form begins with a NUL.
    NSData* bytes = [text dataUsingEncoding:NSUTF8StringEncoding];
    return bytes ? textFromStored(std::string(static_cast<const char*>(bytes.bytes), bytes.length))
                 : std::string();
}

NSArray<NSString*>* arrayOf(const std::vector<std::string>& texts)
{
    NSMutableArray<NSString*>* array = [NSMutableArray arrayWithCapacity:texts.size()];
    for (const std::string& text : texts) {
        [array addObject:textOf(text)];
    }
    return array;
}

/// The standard defaults of the user.
class UserDefaultsStore final : public PrefsStore
{
public:
    bool has(const std::string& key) override { return [m_d objectForKey:textOf(key)] != nil; }
    bool boolean(const std::string& key) override { return [m_d boolForKey:textOf(key)]; }
    double number(const std::string& key) override { return [m_d doubleForKey:textOf(key)]; }

    std::int64_t wholeNumber(const std::string& key) override
    {
        return [m_d integerForKey:textOf(key)];
    }

    std::optional<std::string> text(const std::string& key) override
    {
        NSString* found = [m_d stringForKey:textOf(key)];
        return found ? std::optional(bytesOf(found)) : std::nullopt;
    }

    std::optional<std::vector<std::string>> texts(const std::string& key) override
    {
        NSArray* found = [m_d arrayForKey:textOf(key)];
        if (!found) {
            return std::nullopt;
        }
        std::vector<std::string> all;
        for (id element in found) {
            if (![element isKindOfClass:NSString.class]) {
                return std::nullopt;
            }
            all.push_back(bytesOf(element));
        }
        return all;
    }

    void write(const std::vector<std::pair<std::string, PrefValue>>& values) override
    {
        for (const auto& [key, value] : values) {
            NSString* name = textOf(key);
            if (const auto* flag = std::get_if<bool>(&value)) {
                [m_d setBool:*flag forKey:name];
            } else if (const auto* whole = std::get_if<std::int64_t>(&value)) {
                [m_d setInteger:static_cast<NSInteger>(*whole) forKey:name];
            } else if (const auto* number = std::get_if<double>(&value)) {
                [m_d setDouble:*number forKey:name];
            } else if (const auto* text = std::get_if<std::string>(&value)) {
                [m_d setObject:textOf(*text) forKey:name];
            } else if (const auto* change = std::get_if<TextsChange>(&value)) {
                const auto list = texts(key).value_or(std::vector<std::string>{});
                [m_d setObject:arrayOf(changed(list, *change)) forKey:name];
            } else {
                [m_d setObject:arrayOf(std::get<std::vector<std::string>>(value)) forKey:name];
            }
        }
    }

private:
    NSUserDefaults* m_d = NSUserDefaults.standardUserDefaults;
};

} // namespace

std::unique_ptr<PrefsStore> systemPrefsStore()
{
    return std::make_unique<UserDefaultsStore>();
}

} // namespace zolva
