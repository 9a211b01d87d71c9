// Tests of classes that are found and made by name.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <platform/io/CObject.h>

namespace orvo {
namespace {

class Shape : public CObject {
public:
    static const CRuntimeClass classShape;
    const CRuntimeClass* GetRuntimeClass() const override { return &classShape; }
};

class Circle : public Shape {
public:
    static const CRuntimeClass classCircle;
    const CRuntimeClass* GetRuntimeClass() const override { return &classCircle; }
};

const CRuntimeClass Shape::classShape("Shape", 1, nullptr, &CObject::classCObject);
const CRuntimeClass Circle::classCircle(
    "Circle", 3, [] { return std::unique_ptr<CObject>(std::make_unique<Circle>()); },
    &Shape::classShape);

TEST(RuntimeClass, AClassWithAMakerIsMadeByItsName) {
    const CRuntimeClass* found = CRuntimeClass::Find("Circle");
    ASSERT_EQ(found, &Circle::classCircle);

    const std::unique_ptr<CObject> made = found->CreateObject();

    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->GetRuntimeClass(), &Circle::classCircle);
}

TEST(RuntimeClass, AClassWithoutAMakerIsNotFound) {
    EXPECT_EQ(CRuntimeClass::Find("Shape"), nullptr);
    EXPECT_EQ(CRuntimeClass::Find("CObject"), nullptr);
    EXPECT_EQ(CRuntimeClass::Find("circle"), nullptr);
    EXPECT_EQ(Shape::classShape.CreateObject(), nullptr);
}

TEST(RuntimeClass, AClassThatIsGoneIsNotFound) {
    {
        const CRuntimeClass passing("Passing", 1, Circle::classCircle.maker, nullptr);
        EXPECT_EQ(CRuntimeClass::Find("Passing"), &passing);
    }
    EXPECT_EQ(CRuntimeClass::Find("Passing"), nullptr);
}

TEST(RuntimeClass, AnObjectIsOfItsClassAndOfAllItsBases) {
    const Circle circle;
    const Shape shape;

    EXPECT_TRUE(circle.IsKindOf(Circle::classCircle));
    EXPECT_TRUE(circle.IsKindOf(Shape::classShape));
    EXPECT_TRUE(circle.IsKindOf(CObject::classCObject));
    EXPECT_FALSE(shape.IsKindOf(Circle::classCircle));
    EXPECT_FALSE(CObject().IsKindOf(Shape::classShape));
}

}  // namespace
}  // namespace orvo
