#include "qoctreenode.h"

QOctreeNode::~QOctreeNode()
{
    for (QOctreeNode* child : children)
        delete child;
}
