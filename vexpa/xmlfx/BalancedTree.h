// vexpa/xmlfx/BalancedTree.h - trees that keep a crowded hash bucket fast.
#ifndef VEXPA_XMLFX_BALANCEDTREE_H_
#define VEXPA_XMLFX_BALANCEDTREE_H_

#include <utility>

namespace tarn::xmlfx {

// A. Andersson, "Balanced search trees made simple" (1993), insertion only. A node has
// members left, right and level; a level of 1 is a leaf's. An empty tree is null.

// Turns a left child of the same level into a right one.
template <class Node>
Node* Skew(Node* root) noexcept {
    Node* left = root->left;
    if (left == nullptr || left->level != root->level) return root;
    root->left = std::exchange(left->right, root);
    return left;
}

// Lifts the middle one of three of the same level.
template <class Node>
Node* Split(Node* root) noexcept {
    Node* right = root->right;
    if (right == nullptr || right->right == nullptr || right->right->level != root->level) return root;
    root->right = std::exchange(right->left, root);
    ++right->level;
    return right;
}

// Adds `node`, which is new, and answers the new root. Recursion is as deep as the tree,
// which is twice the logarithm of its size at most.
template <class Node, class Less>
Node* InsertIntoTree(Node* root, Node* node, const Less& less) noexcept {
    if (root == nullptr) return node;
    Node*& side = less(*node, *root) ? root->left : root->right;
    side = InsertIntoTree(side, node, less);
    return Split(Skew(root));
}

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_BALANCEDTREE_H_
